#include "testing_d3d8.h"

#include <algorithm>
#include <array>
#include <map>
#include <mutex>
#include <optional>

#include "device_watch.h"

namespace platform::testing {

class DeviceControls::Watch final : public DeviceWatch {
public:
    HRESULT called(DeviceFunction function, DWORD first, DWORD second) override {
        const std::lock_guard guard(mutex);
        const HRESULT result = answer(function, first);
        calls.push_back({function, first, second, result});
        return result;
    }

    void limit(D3DCAPS8& caps) override {
        const std::lock_guard guard(mutex);
        if (squareOnly) caps.TextureCaps |= D3DPTEXTURECAPS_SQUAREONLY;
        if (noVertexProcessing) caps.VertexProcessingCaps = 0;
    }

    void presented(std::span<const std::uint32_t> pixels) override {
        const std::lock_guard guard(mutex);
        frame.assign(pixels.begin(), pixels.end());
        for (std::uint32_t& pixel : frame) pixel &= 0xFFFFFF;  // the top byte means nothing
    }

    mutable std::mutex mutex;  // guards everything here
    std::array<HRESULT, kDeviceFunctions> faults{};
    std::map<DWORD, HRESULT> refusedFormats;
    bool squareOnly = false;
    bool noVertexProcessing = false;
    std::optional<int> testsWhileLost;  // left until a reset would help; nothing when the device is not lost
    std::vector<DeviceCall> calls;
    std::vector<std::uint32_t> frame;

private:
    HRESULT answer(DeviceFunction function, DWORD first) {
        if (const HRESULT fault = faults[static_cast<std::size_t>(function)]; FAILED(fault)) return fault;
        switch (function) {
            case DeviceFunction::CheckDeviceType:
            case DeviceFunction::CheckDeviceFormat: {
                const auto refused = refusedFormats.find(first);
                return refused == refusedFormats.end() ? D3D_OK : refused->second;
            }
            case DeviceFunction::Present: return testsWhileLost ? D3DERR_DEVICELOST : D3D_OK;
            case DeviceFunction::TestCooperativeLevel: return testLevel();
            case DeviceFunction::Reset: return reset();
            default: return D3D_OK;
        }
    }

    HRESULT testLevel() {
        if (!testsWhileLost) return D3D_OK;
        if (*testsWhileLost == 0) return D3DERR_DEVICENOTRESET;
        --*testsWhileLost;
        return D3DERR_DEVICELOST;
    }

    HRESULT reset() {
        if (testsWhileLost.value_or(0) > 0) return D3DERR_DEVICELOST;
        testsWhileLost.reset();
        return D3D_OK;
    }
};

DeviceControls::DeviceControls() : watch_(std::make_unique<Watch>()) {
    deviceWatch.store(watch_.get(), std::memory_order_release);
}

DeviceControls::~DeviceControls() { deviceWatch.store(nullptr, std::memory_order_release); }

void DeviceControls::fail(DeviceFunction function, HRESULT result) {
    const std::lock_guard guard(watch_->mutex);
    watch_->faults[static_cast<std::size_t>(function)] = result;
}

void DeviceControls::refuse(D3DFORMAT format, HRESULT result) {
    const std::lock_guard guard(watch_->mutex);
    watch_->refusedFormats[format] = result;
}

void DeviceControls::allowSquareTexturesOnly() {
    const std::lock_guard guard(watch_->mutex);
    watch_->squareOnly = true;
}

void DeviceControls::removeVertexProcessing() {
    const std::lock_guard guard(watch_->mutex);
    watch_->noVertexProcessing = true;
}

void DeviceControls::loseDevice(int tests) {
    const std::lock_guard guard(watch_->mutex);
    watch_->testsWhileLost = tests;
}

std::vector<DeviceCall> DeviceControls::calls() const {
    const std::lock_guard guard(watch_->mutex);
    return watch_->calls;
}

std::size_t DeviceControls::count(DeviceFunction function) const {
    const std::lock_guard guard(watch_->mutex);
    return static_cast<std::size_t>(std::ranges::count(watch_->calls, function, &DeviceCall::function));
}

void DeviceControls::forgetCalls() {
    const std::lock_guard guard(watch_->mutex);
    watch_->calls.clear();
}

std::vector<std::uint32_t> DeviceControls::frame() const {
    const std::lock_guard guard(watch_->mutex);
    return watch_->frame;
}

}  // namespace platform::testing
