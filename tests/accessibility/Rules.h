// The rules of the walk. Each looks at one window, or page of it, that is shown, and tells what is missing.
#pragma once

#include "Findings.h"

namespace kestrava::accessibility {

/// How many things a rule has looked at, so that a walk that looks at nothing is seen.
using Count = int;

/// Every control has a name of its own and a role, by the interfaces that a screen reader uses.
Count CheckNames(const Visit& visit, Findings& findings);
/// Every menu and every entry of one has a name; a bar's menus have their letter.
Count CheckMenus(const Visit& visit, Findings& findings);
/// Every row of a list says what it shows, and the heads that sort have their entries in a menu.
Count CheckRows(const Visit& visit, Findings& findings);
/// Labels stand for controls of their own window, and no letter stands for two.
Count CheckMnemonics(const Visit& visit, Findings& findings);

/// Every control is reached by Tab and by Shift+Tab, or by the arrows in its group.
Count CheckKeyboard(const Visit& visit, Findings& findings);
/// What has the focus looks so.
Count CheckFocusIsSeen(const Visit& visit, Findings& findings);

/// Texts stand out by 4.5 to 1: by the palette, and as they are on the screen.
Count CheckTexts(const Visit& visit, Findings& findings);
/// The edges of fields and boxes stand out by 3 to 1.
Count CheckEdges(const Visit& visit, Findings& findings);
/// What is disabled looks so.
Count CheckDisabled(const Visit& visit, Findings& findings);

}  // namespace kestrava::accessibility
