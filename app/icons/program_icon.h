#pragma once
// The program's own icon, at every size it was rendered, for its windows.
#include <QIcon>

namespace korvexed {

QIcon ProgramIcon();

}  // namespace korvexed
