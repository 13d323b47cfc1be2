#ifndef RL_RLLASERWELDDEFINE_H
#define RL_RLLASERWELDDEFINE_H

#include <QObject>

namespace pendix
{
class RLManager;
}

/// Registers the laser-welding instructions, each row of the catalogue, and their group with the host, all in the
/// constructor. The registrations, editor factories included, stay in force when the object is gone. The host reports
/// no failure.
class RlLaserWeldDefine : public QObject
{
    Q_OBJECT

public:
    explicit RlLaserWeldDefine(QObject* parent);

    /// One instruction each, once more.
    void initLaserOn() { init("LaserOn"); }
    void initLaserOff() { init("LaserOff"); }
    void initParaSet() { init("LsParaSet"); }
    void initWireFwd() { init("LsWireFwd"); }
    void initWireBwd() { init("LsWireBwd"); }
    void initLsParamMatch() { init("LsParaMatch"); }
    void initLsParaMatchOff() { init("LsParaMatchOff"); }
    void initLsMoveL() { init("LsMoveL"); }
    void initLsMoveC() { init("LsMoveC"); }
    void initLsMoveCF() { init("LsMoveCF"); }

private:
    /// Registers the row of that name, which must exist.
    void init(const char* name);

    pendix::RLManager* m_manager;
};

#endif
