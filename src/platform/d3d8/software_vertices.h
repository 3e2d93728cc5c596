#pragma once

#include <array>
#include <optional>
#include <vector>

#include <d3d8.h>

#include "com_object.h"

namespace platform {

/// One vertex of the only layout that this device draws: screen pixels and texture coordinates.
struct ScreenVertex {
    float x;
    float y;
    float z;
    float rhw;
    float u;
    float v;
};

/// Two triangles of a list.
using QuadVertices = std::array<ScreenVertex, 6>;

/// Vertices in plain memory. Written and drawn on one thread.
class SoftwareVertices final : public ComObject<IDirect3DVertexBuffer8> {
public:
    /// `bytes` zeroed bytes.
    explicit SoftwareVertices(UINT bytes) : bytes_(bytes) {}

    HRESULT Lock(UINT offset, UINT size, BYTE** data, DWORD flags) override;
    HRESULT Unlock() override;

    /// Six vertices from number `first` on; nothing when they are not all there or the buffer is locked.
    [[nodiscard]] std::optional<QuadVertices> quad(UINT first) const;

private:
    std::vector<BYTE> bytes_;
    bool locked_ = false;
};

}  // namespace platform
