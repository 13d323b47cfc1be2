#include "simulator/program/editorframe.h"

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace sim
{

EditorFrame::EditorFrame(QWidget* parent) : QWidget(parent), m_scroll(new QScrollArea(this)), m_word(new QLabel(this))
{
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::StyledPanel);
    // Editors have the pendant's font, as its pages do: those of their widgets that have a style sheet would not
    // follow another one.
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF());
    m_scroll->setFont(font);
    m_word->setObjectName(QStringLiteral("editorWord"));
    m_word->setTextFormat(Qt::PlainText);
    m_word->setWordWrap(true);
    m_word->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_word->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_scroll, 1);
    layout->addWidget(m_word);
}

EditorFrame::~EditorFrame()
{
    // Its own going is not the editor's: nobody is to be told when this is no frame any more.
    setEditor(nullptr);
}

void EditorFrame::setEditor(std::unique_ptr<pendix::RLContentBase> editor, const QString& sheet)
{
    tell({});
    if (m_editor != nullptr) {
        disconnect(m_editor, nullptr, this, nullptr);
    }
    delete m_scroll->takeWidget();
    m_editor = editor.release();
    if (m_scroll->styleSheet() != sheet) {
        m_scroll->setStyleSheet(sheet);
    }
    if (m_editor != nullptr) {
        m_scroll->setWidget(m_editor);
        connect(m_editor, &QObject::destroyed, this, &EditorFrame::editorGone);
    }
}

void EditorFrame::tell(const QString& text, Tone tone)
{
    const bool isRefusal = tone == Tone::Refusal;
    QPalette colours;
    if (isRefusal) {
        colours.setColor(QPalette::Window, QColor(190, 0, 20));
        colours.setColor(QPalette::WindowText, Qt::white);
    }
    m_word->setPalette(colours);
    m_word->setAutoFillBackground(isRefusal);
    m_word->setMargin(isRefusal ? 4 : 0);
    m_word->setText(text);
    m_word->setVisible(!text.isEmpty());
}

} // namespace sim
