#include "resource_loader.h"

#include <utility>

namespace grub {

ResourceLoader::~ResourceLoader() {
    idle_.wait(INFINITE);
    if (thread_) CloseHandle(thread_);
}

void ResourceLoader::start(LoadStep step) {
    idle_.wait(INFINITE);
    if (thread_) CloseHandle(thread_);
    step_ = std::move(step);
    stop_ = false;
    progress_ = 0;
    idle_.reset();
    thread_ = CreateThread(nullptr, 0, threadMain, this, 0, nullptr);
    if (!thread_) idle_.set();
}

DWORD WINAPI ResourceLoader::threadMain(void* loader) {
    static_cast<ResourceLoader*>(loader)->runPass();
    return 0;
}

void ResourceLoader::runPass() {
    for (int step = 0; step < kLoadingSteps && !stop_; ++step) {
        step_(step);
        ++progress_;
    }
    idle_.set();
}

}  // namespace grub
