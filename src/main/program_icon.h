#pragma once

namespace grub {

/// Offers the program's icon, a miner's helmet, to LoadIconA as resource 101.
void offerProgramIcon();

}  // namespace grub
