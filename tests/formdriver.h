#ifndef TESTS_FORMDRIVER_H
#define TESTS_FORMDRIVER_H

#include <QAbstractButton>
#include <QShowEvent>
#include <QTest>
#include <QWidget>

/// Works a page as an operator would: by object name, with real key and mouse events. A name that does
/// not exist fails the test with that name and ends the process, since nothing after it means anything.
class FormDriver
{
public:
    explicit FormDriver(QWidget* page) : m_page(page) {}

    template <typename T = QWidget>
    T* find(const QString& name) const
    {
        T* widget = m_page->findChild<T*>(name);
        if (widget == nullptr) {
            qFatal("no widget %s", qPrintable(name));
        }
        return widget;
    }

    /// A left click in the middle; does nothing on a disabled widget, like a finger.
    void press(const QString& name) const { QTest::mouseClick(find(name), Qt::LeftButton); }

    /// Types a value into a spin box or line edit.
    void type(const QString& name, const QString& text) const
    {
        QWidget* widget = find(name);
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(widget, text);
        QTest::keyClick(widget, Qt::Key_Tab);
    }

    bool isEnabled(const QString& name) const { return find(name)->isEnabled(); }

private:
    QWidget* m_page;
};

/// The window system restores the page's window.
inline void restore(QWidget* page)
{
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    qApp->notify(page, &restored);
}

#endif
