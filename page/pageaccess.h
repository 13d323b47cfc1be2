#ifndef PAGE_PAGEACCESS_H
#define PAGE_PAGEACCESS_H

class WeldSettingPage;

/// What the operator may do on a configuration page.
enum class PageAccess {
    Locked,   ///< nothing: the operator's level is 2 or lower
    ReadOnly, ///< look, as welding is enabled
    Editable
};

/// What the operator may do now: the level is asked of the host, which may take its time and the page away, then the
/// main switch of the setting page as it stands after that. Without a setting page, or when it has gone meanwhile, no
/// switch forbids anything.
PageAccess accessOf(WeldSettingPage* settingPage);

#endif
