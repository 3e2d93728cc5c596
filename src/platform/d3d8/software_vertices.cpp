#include "software_vertices.h"

#include <cstring>

#include "device_watch.h"

namespace platform {

HRESULT SoftwareVertices::Lock(UINT offset, UINT size, BYTE** data, DWORD flags) {
    if (const HRESULT fault = announceCall(DeviceFunction::LockVertices, offset, flags); FAILED(fault)) return fault;
    if (locked_ || data == nullptr || offset > bytes_.size() || size > bytes_.size() - offset) {
        return D3DERR_INVALIDCALL;
    }
    locked_ = true;
    *data = bytes_.data() + offset;
    return D3D_OK;
}

HRESULT SoftwareVertices::Unlock() {
    if (const HRESULT fault = announceCall(DeviceFunction::UnlockVertices); FAILED(fault)) return fault;
    if (!locked_) return D3DERR_INVALIDCALL;
    locked_ = false;
    return D3D_OK;
}

std::optional<QuadVertices> SoftwareVertices::quad(UINT first) const {
    QuadVertices vertices;
    const std::size_t inBuffer = bytes_.size() / sizeof(ScreenVertex);
    if (locked_ || inBuffer < vertices.size() || first > inBuffer - vertices.size()) return std::nullopt;
    std::memcpy(vertices.data(), bytes_.data() + first * sizeof(ScreenVertex), sizeof vertices);
    return vertices;
}

}  // namespace platform
