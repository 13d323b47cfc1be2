#ifndef PENDIX_RL_H
#define PENDIX_RL_H

#include <QList>
#include <QObject>
#include <QString>
#include <QWidget>

#include <functional>

namespace pendix
{

/// One parameter of a custom instruction.
struct RlCustomField {
    QString name;         ///< parameter name
    qint32 kind = 0;      ///< kind code (1 number, 2 quoted text, 3 point, 5 speed, 6 zone, 7 tool, 8 work object)
    qint32 option = 0;    ///< meaning is the host's
    QString defaultValue; ///< empty for none
    qint32 minimum = 0;   ///< lower bound of a number
    qint32 maximum = 0;   ///< upper bound of a number
};

/// A custom instruction with its parameters in argument order.
struct RlCustomCommandSpec {
    QString name;
    QString description;
    QString skeleton;
    bool useDefaultEditor = true; ///< true: the host builds the editors from the fields
    QList<RlCustomField> fields;
};

/// Base of every instruction editor. The host calls CheckInsert and then ToString to insert a line;
/// FillWith, CheckReplace and ToString to change one.
class RLContentBase : public QWidget
{
    Q_OBJECT

public:
    explicit RLContentBase(QWidget* parent = nullptr);
    ~RLContentBase() override;

    /// Fills the editor from an existing program line. The base does nothing.
    virtual void FillWith(const QString& line);
    /// The line that the editor describes. The base returns an empty text.
    virtual QString ToString();
    /// Whether the line may be inserted or replaced now. An editor that does not override a check has
    /// not agreed to it: the base answers false.
    virtual bool CheckInsert();
    virtual bool CheckReplace();
};

using RLContentFactory = std::function<RLContentBase*()>;

/// A handle onto the host's instruction registry: what it registers outlives it.
/// An instruction is known from the first call that names it.
class RLManager : public QObject
{
    Q_OBJECT

public:
    explicit RLManager(QObject* parent = nullptr);
    ~RLManager() override;

    void createTypeKey(const QString& name);
    void createSkeleton(const QString& name, const QString& skeleton);
    void createInsDescribe(const QString& name, const QString& text);
    void createPattern(const QString& name, const QString& regex);
    void createInsDefault(const QString& name, const QString& line);
    void createPropertyWidget(const QString& name, const std::function<RLContentBase*()>& factory);
    void createInsertWidget(const QString& name, const std::function<RLContentBase*()>& factory);
    void createTypeToGroup(const QString& group, const QString& name);
    void createData(const QString& group, const RlCustomCommandSpec& spec,
                    const std::function<RLContentBase*()>& insertFactory,
                    const std::function<RLContentBase*()>& propertyFactory);
    void createGroups(const QString& title, const QString& group);
};

} // namespace pendix

#endif
