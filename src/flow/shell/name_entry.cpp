#include "name_entry.h"

namespace grub {
namespace {

constexpr std::uint32_t kBackspace = 8;  // these three are codes of the system
constexpr std::uint32_t kFirstCharacter = '0';
constexpr std::uint32_t kLastCharacter = 'Z';

}  // namespace

void NameEntry::keyDown(KeyCode code) {
    if (isComplete()) return;
    switch (std::uint32_t{code}) {
        case KeyEnter: return finish();
        case KeyLeft:
        case kBackspace: return takeBack();
        case KeyRight:
        case KeySpace:
        case KeyA:  // A, B and C are buttons first: their codes are no characters
        case KeyB:
        case KeyC: return type(' ');
        default:
            if (code >= kFirstCharacter && code <= kLastCharacter) type(static_cast<char>(code));
    }
}

void NameEntry::takeBack() {
    if (cursor_ > 0) name_[--cursor_] = ' ';
}

}  // namespace grub
