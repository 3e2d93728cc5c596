#pragma once

#include <array>

#include <d3d8.h>

namespace platform {

/// Render states and the states of texture stage 0. The rasteriser knows one way of drawing; the states say whether
/// the program asked for it.
class PipelineStates {
public:
    /// All states as a fresh device has them.
    PipelineStates();

    /// False for a state that does not exist.
    bool setRenderState(DWORD state, DWORD value);
    bool setStageState(DWORD state, DWORD value);

    /// Whether the states ask for a texture blended by its alpha times that of the texture factor, sampled by points
    /// and clamped, without light, depth or culling: what the rasteriser does.
    [[nodiscard]] bool fitRasteriser();
    /// Alpha byte of the texture factor.
    [[nodiscard]] std::uint8_t opacity() const { return static_cast<std::uint8_t>(render_[D3DRS_TEXTUREFACTOR] >> 24); }

private:
    std::array<DWORD, 256> render_{};
    std::array<DWORD, 32> stage_{};
    bool compared_ = false;
    bool fit_ = false;
};

}  // namespace platform
