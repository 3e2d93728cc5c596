#include "level_resources.h"

#include "level_sound.h"

namespace grub {

void LevelResources::startLoadingPass() {
    animations_.stopLoading(false);
    loader_.start([this](int step) { loadStep(step); });
}

void LevelResources::stopLoading() {
    animations_.stopLoading(true);
    loader_.requestStop();
    loader_.wait(INFINITE);
}

bool LevelResources::startSecondPass() {
    if (firstListThere_ || !loader_.isComplete()) return false;
    firstListThere_ = true;
    loader_.forgetProgress();
    startLoadingPass();
    return true;
}

void LevelResources::wait(DWORD milliseconds) {
    if (!loader_.isComplete()) loader_.wait(milliseconds);
}

void LevelResources::loadStep(int step) {
    const int list = firstListThere_ ? 1 : 0;
    if (list == 1 && step == 0) LevelSound::loadSecondPhase();
    for (const LoadEntry& entry : loadingStep(list, step)) animations_.add(entry);
}

}  // namespace grub
