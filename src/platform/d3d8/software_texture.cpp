#include "software_texture.h"

#include <new>

#include "device_watch.h"

namespace platform {

SoftwareTexture* SoftwareTexture::create(UINT width, UINT height, D3DFORMAT format) {
    const std::size_t bytesPerTexel = format == D3DFMT_A8R8G8B8 ? 4 : 2;
    HeapArray<std::uint8_t> bits(static_cast<std::uint8_t*>(std::calloc(std::size_t{width} * height, bytesPerTexel)));
    if (bits == nullptr) return nullptr;
    return new (std::nothrow) SoftwareTexture(width, height, format, std::move(bits));
}

SoftwareTexture::SoftwareTexture(UINT width, UINT height, D3DFORMAT format, HeapArray<std::uint8_t> bits)
    : width_(width), height_(height), format_(format), bits_(std::move(bits)) {}

HRESULT SoftwareTexture::LockRect(UINT level, D3DLOCKED_RECT* locked, const RECT* rect, DWORD flags) {
    if (const HRESULT fault = announceCall(DeviceFunction::LockTexture, level, flags); FAILED(fault)) return fault;
    const std::lock_guard guard(mutex_);
    // Parts of a level are never locked here, and there is one level.
    if (level != 0 || locked == nullptr || rect != nullptr || locked_) return D3DERR_INVALIDCALL;
    locked_ = true;
    lockFlags_ = flags;
    *locked = {static_cast<int>(pitch()), bits_.get()};
    return D3D_OK;
}

HRESULT SoftwareTexture::UnlockRect(UINT level) {
    if (const HRESULT fault = announceCall(DeviceFunction::UnlockTexture, level); FAILED(fault)) return fault;
    const std::lock_guard guard(mutex_);
    if (level != 0 || !locked_) return D3DERR_INVALIDCALL;
    locked_ = false;
    const bool written = (lockFlags_ & D3DLOCK_NO_DIRTY_UPDATE) == 0;
    if (written) image_.reset();
    return D3D_OK;
}

}  // namespace platform
