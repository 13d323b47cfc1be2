#ifndef COMMON_NAMES_H
#define COMMON_NAMES_H

/// Names agreed with the host and the controller's welding service. What goes over the line is a record that says
/// what the name carries: docs/integrator-guide.md and the schemas beside it are made from these records.
namespace names
{

/// The plug-in's name: registration key, command target, message source and log folder.
constexpr char kPlugin[] = "Corvane";

/// The sibling plug-in that tracks the seam; its page is embedded in ours.
constexpr char kTrackingPlugin[] = "Mirolt";

namespace node
{

enum class Content {
    Object, ///< a configuration node, whole
    Boolean,
    Stream ///< not read: who subscribed to it hands its values on, and the package ends the subscription
};

/// Something that the welding service publishes. Stands for its name wherever a name is asked for.
struct Node {
    const char* name;
    Content content;
    const char* use; ///< who reads it when, and what a missing value means

    constexpr operator const char*() const { return name; }
};

inline constexpr Node kWeldSetting = {
    "weld_setting_config", Content::Object,
    "\"Weld Setup\", whenever it is shown and on \"Cancel\". Missing or no object: the "
    "form keeps its values"};
inline constexpr Node kWeldIo = {
    "weld_io_config", Content::Object,
    "\"Weld I/O\", whenever it is shown, on \"Cancel\" and after a save that was accepted. Missing or no object: the "
    "tables keep what they show. \"Char. Curve\", whenever it is shown, and when a press is refused as welding is on. "
    "Missing or no object: all curves are closed"};
inline constexpr Node kWeldCurve = {
    "weld_curve_config", Content::Object,
    "\"Char. Curve\", whenever it is shown and on \"Cancel\". Missing or no object: the tables keep what they show"};
inline constexpr Node kVirtualWelding = {"laser_weld_data.virtual_welding_status", Content::Boolean,
                                         "status picture, after every (re)connection; pendant button \"Work mode\". "
                                         "Missing: false, real welding"};
inline constexpr Node kRedLightStatus = {"laser_weld_data.weld_redlight_status", Content::Boolean,
                                         "pendant button \"Red Light\". Missing: false, the light is off"};
inline constexpr Node kMonitorData = {
    "weld_monitor_data", Content::Stream,
    "the monitor, from whoever opened it; the monitor ends the subscription when it is closed or destroyed"};

inline constexpr const Node* kAll[] = {&kWeldSetting,    &kWeldIo,         &kWeldCurve,
                                       &kVirtualWelding, &kRedLightStatus, &kMonitorData};

} // namespace node

/// Members of a set of values of "weld_monitor_data".
namespace monitor
{
constexpr char kPower[] = "get_laser_power";
constexpr char kFrequency[] = "get_laser_frequency";
constexpr char kDutyCycle[] = "get_laser_dutycycle";
constexpr char kWireSpeed[] = "get_laser_wirespeed";
constexpr char kWeldSpeed[] = "get_laser_weldspeed";

inline constexpr const char* kAll[] = {kPower, kFrequency, kDutyCycle, kWireSpeed, kWeldSpeed};
} // namespace monitor

namespace command
{

/// What a command carries.
enum class Argument {
    Node,  ///< a configuration node, whole
    Curve, ///< the members of one curve
    Boolean,
    True,  ///< never anything else
    False, ///< never anything else
    Word   ///< the text "TRUE" or "FALSE", handed over beside the name instead of in a command object
};

/// How the "return" of a command's answer is read.
enum class Answer {
    Code,     ///< number, 0: done; no whole number counts as 0; no answer is only logged
    ReadCode, ///< number (its fraction is cut off), text or boolean, 0: done; no answer is refused
    AnyCode,  ///< the same, but no answer counts as 0
    Done,     ///< boolean, true: done; anything else, also no answer: refused
    Line,     ///< a straight line; no answer is the line 0
    Ignored
};

/// A command of the welding service. Stands for its name wherever a name is asked for.
struct Command {
    const char* name;
    Argument argument;
    Answer answer;
    const char* sender;   ///< class whose object is the host call's sender
    const char* occasion; ///< what makes it be sent

    constexpr operator const char*() const { return name; }
};

inline constexpr Command kSetWeldSetting = {"set_weld_setting_config", Argument::Node, Answer::Code, "WeldSettingPage",
                                            "\"Save\" on \"Weld Setup\"; once more, and then without regard to the "
                                            "answer, when welding has been enabled"};
inline constexpr Command kSetWeldEnable = {"set_weld_enable", Argument::Word, Answer::Done, "WeldSettingPage",
                                           "main switch of \"Weld Setup\"; the answer to \"FALSE\" is ignored"};
inline constexpr Command kSetWeldIo = {"set_weld_io_config", Argument::Node, Answer::ReadCode, "WeldioPage",
                                       "\"Save\" on \"Weld I/O\""};
inline constexpr Command kComputeCurve = {
    "compute_curve_config", Argument::Curve, Answer::Line, "CharacteristicsCurvePage",
    "\"Compute\" and \"Save\" on \"Char. Curve\"; \"Cancel\" of a curve whose line was asked for before, and every "
    "show of the page for each of these"};
inline constexpr Command kSetPowerCurve = {"set_weld_curve_power_config", Argument::Curve, Answer::Code,
                                           "CharacteristicsCurvePage", "\"Save\" on \"Char. Curve\", laser power"};
inline constexpr Command kSetFeedCurve = {"set_weld_curve_feed_config", Argument::Curve, Answer::Code,
                                          "CharacteristicsCurvePage", "\"Save\" on \"Char. Curve\", feeding speed"};
inline constexpr Command kSetFrequencyCurve = {"set_weld_curve_frequency_config", Argument::Curve, Answer::Code,
                                               "CharacteristicsCurvePage",
                                               "\"Save\" on \"Char. Curve\", PWM frequency"};
inline constexpr Command kSetDutyCycleCurve = {"set_weld_curve_dutycycle_config", Argument::Curve, Answer::Code,
                                               "CharacteristicsCurvePage",
                                               "\"Save\" on \"Char. Curve\", PWM duty cycle"};
inline constexpr Command kSetVirtualWelding = {"set_virtual_welding", Argument::Boolean, Answer::AnyCode,
                                               "pendix::Corvane", "\"Work mode\" pressed; the opposite of what is"};
inline constexpr Command kFeedWire = {"set_weld_feed_wire", Argument::Boolean, Answer::Code, "pendix::Corvane",
                                      "\"Wiring\" pressed (true) and released (false)"};
inline constexpr Command kRetractWire = {"set_weld_retract_wire", Argument::Boolean, Answer::Code, "pendix::Corvane",
                                         "\"Retract Wire\" pressed (true) and released (false)"};
inline constexpr Command kManualGas = {"set_weld_manual_gas", Argument::True, Answer::Code, "pendix::Corvane",
                                       "\"ProtectGas\" pressed"};
inline constexpr Command kSetRedLight = {"set_weld_red_light", Argument::Boolean, Answer::Ignored, "pendix::Corvane",
                                         "\"Red Light\" pressed; the opposite of what is"};
inline constexpr Command kMonitor = {
    "start_laserweld_monitor", Argument::False, Answer::Ignored, "ButtonMonitorPage",
    "the monitor is closed, or destroyed without; true, which starts the stream, is for who opens it"};

inline constexpr const Command* kAll[] = {&kSetWeldSetting,    &kSetWeldIo,    &kSetWeldEnable,     &kComputeCurve,
                                          &kSetPowerCurve,     &kSetFeedCurve, &kSetFrequencyCurve, &kSetDutyCycleCurve,
                                          &kSetVirtualWelding, &kFeedWire,     &kRetractWire,       &kManualGas,
                                          &kSetRedLight,       &kMonitor};

} // namespace command

namespace setting
{
constexpr char kFontZoom[] = "brisel.fontzoom";
} // namespace setting

} // namespace names

#endif
