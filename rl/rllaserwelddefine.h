#ifndef RL_RLLASERWELDDEFINE_H
#define RL_RLLASERWELDDEFINE_H

#include <QObject>

namespace pendix
{
class RLManager;
}

/// Registers the ten laser-welding instructions and their group with the host, all in the constructor. The
/// registrations, editor factories included, stay in force when the object is gone. The host reports no failure.
class RlLaserWeldDefine : public QObject
{
    Q_OBJECT

public:
    explicit RlLaserWeldDefine(QObject* parent);

private:
    void initLaserOn();
    void initLaserOff();
    void initParaSet();
    void initWireFwd();
    void initWireBwd();
    void initLsParamMatch();
    void initLsParaMatchOff();
    void initLsMoveL();
    void initLsMoveC();
    void initLsMoveCF();

    pendix::RLManager* m_manager;
};

#endif
