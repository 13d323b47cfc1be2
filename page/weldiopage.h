#ifndef PAGE_WELDIOPAGE_H
#define PAGE_WELDIOPAGE_H

#include "page/io/iotable.h"
#include "page/io/portlists.h"
#include "page/io/portrules.h"
#include "page/pageaccess.h"
#include "page/pagebusiness.h"
#include "widgets/stylekey.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <memory>
#include <vector>

namespace Ui
{
class WeldioPage;
}

/// The weld I/O mapping page: assigns each laser-welding signal to a controller port (an I/O point, or an element of a
/// register) and edits the controller node "weld_io_config" with it. A mapping that breaks a rule is not sent: a
/// register that the signal can't use, a port used twice, a signal in use without a port. While welding is on, or
/// while the operator's level is 2 or lower, nothing can be edited or saved.
class WeldioPage : public QWidget
{
    Q_OBJECT

public:
    /// settingPage: the page whose main switch forbids changes while welding is on; null: nothing forbids them.
    WeldioPage(WeldSettingPage* settingPage, QWidget* parent);
    ~WeldioPage() override;

    /// Checks, sends and, when the controller has accepted, reads the node again. Tells the operator what came of it.
    /// False, without a word, while the page is busy with something else.
    bool saveWeldIoConfig();

    /// The save command: {"set_weld_io_config": {...}} with what the tables show.
    QJsonObject saveWeldIOConfigToJson();

    /// Fills the tables from the node without emitting anything; a value that is no object changes nothing. Asks the
    /// host for the ports of the stored types.
    void loadWeldIOConfigFromJson(const QJsonValue& config);

    /// Asks the host for the ports of every row's type and offers them. What is chosen stays if it is still offered.
    void initComBox();

    /// Enables what the operator may change now.
    void applyIoPageOperateStatus();

    /// Enables or disables a row's name and selectors; its switch stays as it is.
    void setRowPlaneStatus(const WeldIoRow& row, bool enabled);

    /// The translated name of a signal; for an unknown key the translated fallback.
    QString translateIoRowName(const QString& key, const char* fallback) const;

    /// Judges a save's result array, tells the operator and returns whether the controller has accepted. A code may be
    /// a number, a text or a boolean.
    bool checkSaveResult(const QJsonArray& result, const QString& key);

    /// Whether a row's register exists and can be used as the signal does. Asks the host; tells the operator if not.
    bool validateRowRegPort(const WeldIoRow& row) const;

    /// Whether no two signals of a table that are in use share a port; tells the operator if two do.
    bool checkRowsPortConflict(const std::vector<WeldIoRow>& rows) const;

    /// The registers and then the ports of the output table, of the input table.
    bool checkLaserPortConfigValid() const;
    bool checkBackPortConfigValid() const;

    /// Whether every signal in use has a port, in one table and in both. They tell nobody.
    bool checkRowsPortRule(const std::vector<WeldIoRow>& rows) const;
    bool checkIOconfigRule() const;

    void initConnect();

    /// Sheets and fonts for the screen the page is on; nothing when they are in place already.
    void initStyle();

signals:
    /// Part of the interface towards an embedding page; the page itself does not emit it.
    void settingChanged();

protected:
    /// Reads lengths, node and lists anew and derives from them what can be edited. A show while a business is under
    /// way reads nothing; a window that the window system restores keeps its fields.
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using Fields = PageBusiness::Fields;

    template <typename Work>
    bool conduct(const Work& work);
    void refresh(const Business::Turn& turn, Fields fields);
    bool reload(const Business::Turn& turn, PortLists& lists);
    bool load(const QJsonValue& config, PortLists& lists);
    bool offerPorts(const std::vector<WeldIoRow>& rows, PortLists& lists);
    void offerDuePorts(const Business::Turn& turn);
    void onTypeChanged(const WeldIoRow& changed);
    void cancel();
    bool saveNow(const Business::Turn& turn);
    bool maySave();
    bool registersPass(const AssignedSignals& rows, PortLists& lists) const;
    bool portsPass(const AssignedSignals& rows) const;
    bool tablePasses(const AssignedSignals& rows, PortLists& lists) const;
    void showRow(const IoRowTemplate& signal) const;
    void applyAccess(PageAccess access);

    void initIoTables();
    void applySheets();
    void scheduleIoLayoutRefresh(bool full);
    void refreshIoLayout(bool full);
    std::vector<WeldIoRow> allRows() const;

    std::unique_ptr<Ui::WeldioPage> ui;
    QPointer<WeldSettingPage> m_settingPage;
    std::unique_ptr<IoTable> m_outputs;
    std::unique_ptr<IoTable> m_inputs;
    const WeldIoRow* m_retractDirection = nullptr;
    QSharedPointer<KnownPortLists> m_knownLists = QSharedPointer<KnownPortLists>::create();
    QSet<const IoRowTemplate*> m_withoutPorts; ///< signals whose type has changed: the host was not asked for ports yet
    QVector<ListComboBox*> m_speaking;         ///< type selectors whose signal is being answered
    QTimer m_layoutRefresh;                    ///< runs while a refresh of the layout is pending
    bool m_layoutRefreshIsFull = false;
    StyleSteps m_style;
    PageBusiness m_business;
};

#endif
