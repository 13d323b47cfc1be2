#ifndef PAGE_CHARACTERISTICSCURVEPAGE_H
#define PAGE_CHARACTERISTICSCURVEPAGE_H

#include "page/curves/curvenodes.h"
#include "page/curves/curvetab.h"
#include "page/pageaccess.h"
#include "page/pagebusiness.h"
#include "widgets/stylekey.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QPointF>
#include <QPointer>
#include <QVector>
#include <QWidget>

#include <optional>

class QTabWidget;

/// The characteristic curves page: relates what is written to an output port to the laser power, wire feed speed, PWM
/// frequency or PWM duty cycle that it produces. The operator enters two to ten nodes of each curve, the controller
/// computes the straight line through them, the page draws both and stores the nodes in the node "weld_curve_config".
/// A curve whose output is not assigned in the I/O mapping is closed. While welding is on, or while the operator's
/// level is 2 or lower, nothing can be edited, computed or saved.
class CharacteristicsCurvePage : public QWidget
{
    Q_OBJECT

public:
    /// settingPage: the page whose main switch forbids changes while welding is on; null: nothing forbids them.
    CharacteristicsCurvePage(WeldSettingPage* settingPage, QWidget* parent);

    /// Fills the tables from the node; a value that is no object changes nothing.
    void loadWeldCurveConfigFromJson(const QJsonValue& config);

    /// The elements that are pairs of numbers.
    QList<QPointF> convertJsonArrayToPoints(const QJsonArray& array);

    /// Shows that many nodes in a curve's table: the given ones, then zeros.
    void populateTable(QTableWidget* table, int nodeCount, const QList<QPointF>& points);

    /// Appends a node to a curve's table. Values beyond their ranges become the nearest that is within.
    void addRowToTable(QTableWidget* table, int nodeNumber, double portValue, double physicalValue);

    /// Replaces points by the nodes of a table.
    void readTableToPoints(QTableWidget* table, QList<QPointF>& points);

    /// Whether a table's nodes can be computed; tells the operator if not.
    bool validateTableData(QTableWidget* table);

    /// The line in a compute request's answer; an empty one leaves both as they are.
    void parseJsonRetArray(const QJsonArray& result, double& intercept, double& slope);

    /// Draws a table's nodes and a line.
    void ComputeDrawChart(QTableWidget* table, CustomChart* chart, const double& slope, const double& intercept);

    /// Distance of the ticks on an axis that reaches that far; 0 for 1 to 8.
    int computeScale(int maximum);

    /// Checks a curve's nodes, has the controller compute the line and draws both, at any level. Nothing while the page
    /// is busy with something else.
    void computeDrawPowerChart();
    void computeDrawFeedspeedChart();
    void computeDrawFrequencyChart();
    void computeDrawDutycycleChart();

    /// The members of a curve that its commands carry.
    QJsonObject saveWeldCurvePowerConfigToJson();
    QJsonObject saveWeldCurveFeedConfigToJson();
    QJsonObject saveWeldCurveFrequencyConfigToJson();
    QJsonObject saveWeldCurveDutycycleConfigToJson();

    /// The compute request of a curve: {"compute_curve_config": {...}}.
    QJsonObject computePowerCurveToJson();
    QJsonObject computeFeedCurveToJson();
    QJsonObject computeFrequencyCurveToJson();
    QJsonObject computeDutycycleCurveToJson();

    /// The save command of a curve.
    QJsonObject saveCurvePowerConfigToJson();
    QJsonObject saveCurveFeedConfigToJson();
    QJsonObject saveCurveFrequencyConfigToJson();
    QJsonObject saveCurveDutycycleConfigToJson();

    /// Whether a tab's output is in use and assigned; false for a tab that there is not. Asks the host.
    bool isCurveTabIoConfigured(int tab) const;

    /// Opens a tab for reading or editing, or closes it if its output is not in use. Asks the host.
    void setCurveTabEditable(int tab, bool editable);
    void setCurveTableCellWidgetsEnabled(QTableWidget* table, bool enabled);

    void applyCurvePageOperateStatus(); ///< Enables what the operator may change now. Asks the host.

    /// Heads the port values of each curve with its port, and closes the curves without one. Asks the host.
    void initTableHeaderText();
    void resetTableHeaderText(QTableWidget* table, const QString& text);

    /// Judges a save's result array and tells the operator; silence tells them nothing.
    void checkSaveResult(const QJsonArray& result, const QString& key);

    /// Sheets and fonts for the screen the page is on; nothing when they are in place already.
    void initStyle();

protected:
    /// Reads the curves and their ports anew, has lines that were drawn computed again and derives what can be edited.
    /// A show while a business is under way reads nothing; a window that the window system restores keeps its fields.
    void showEvent(QShowEvent* event) override;

private:
    using Fields = PageBusiness::Fields;
    enum Tab { Power, Feed, Frequency, DutyCycle };

    void initTabWidget();
    void initConnect();

    template <typename Work>
    bool conduct(const Work& work);
    void refresh(const Business::Turn& turn, Fields fields);
    bool loadFromController(const Business::Turn& turn);
    bool computeDrawnAgain(const Business::Turn& turn);
    std::optional<QList<QPointF>> validNodes(QTableWidget* table);
    bool computeAndDraw(const CurveTab& tab, const QList<QPointF>& nodes);
    bool computeEntered(const CurveTab& tab);
    void computeNow(const CurveTab& tab);
    void compute(const CurveTab& tab);
    void save(const CurveTab& tab);
    Fields saveNow(const CurveTab& tab, const Business::Turn& turn);
    void cancel(const CurveTab& tab);
    bool mayChange();
    void applyAccess(PageAccess access);
    bool isWeldingOn() const;
    void showPorts(const QJsonObject& mapping);
    void load(const CurveTab& tab, const StoredCurve& stored);
    void draw(QTableWidget* table, CustomChart* chart, const QList<QPointF>& nodes, const CurveLine& line);
    const CurveTab* tabAt(int tab) const;
    const CurveSpec& curveOf(const QTableWidget* table) const;
    QJsonObject members(Tab tab) const;
    QJsonObject command(const names::command::Command& command, Tab tab) const;

    QTabWidget* m_tabWidget;
    QPointer<WeldSettingPage> m_settingPage;
    QVector<CurveTab> m_tabs; ///< in the order of Tab
    StyleSteps m_style;
    PageBusiness m_business;
};

#endif
