#include "d3d8/pipeline_states.h"

#include <algorithm>

namespace platform {
namespace {

struct StateValue {
    DWORD state;
    DWORD value;
};

// A fresh device: the states whose documented default is not 0.
constexpr StateValue kRenderDefaults[] = {
    {D3DRS_SRCBLEND, 2},   // one
    {D3DRS_DESTBLEND, 1},  // zero
    {D3DRS_CULLMODE, 3},   // counter-clockwise
    {D3DRS_TEXTUREFACTOR, 0xFFFFFFFF},
    {D3DRS_LIGHTING, 1},
    {D3DRS_COLORVERTEX, 1},
};
constexpr StateValue kStageDefaults[] = {
    {D3DTSS_COLOROP, D3DTOP_MODULATE},
    {D3DTSS_COLORARG1, D3DTA_TEXTURE},
    {D3DTSS_ALPHAOP, D3DTOP_SELECTARG1},
    {D3DTSS_ALPHAARG1, D3DTA_TEXTURE},
    {D3DTSS_ALPHAARG2, 1},  // the colour so far
    {D3DTSS_ADDRESSU, 1},   // wrap
    {D3DTSS_ADDRESSV, 1},
    {D3DTSS_MAGFILTER, D3DTEXF_POINT},
    {D3DTSS_MINFILTER, D3DTEXF_POINT},
};

// What the rasteriser does.
constexpr StateValue kRenderNeeds[] = {
    {D3DRS_ZENABLE, D3DZB_FALSE},        {D3DRS_DITHERENABLE, 0},
    {D3DRS_SPECULARENABLE, 0},           {D3DRS_COLORVERTEX, 0},
    {D3DRS_SRCBLEND, D3DBLEND_SRCALPHA}, {D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA},
    {D3DRS_ALPHABLENDENABLE, 1},         {D3DRS_LIGHTING, 0},
    {D3DRS_CULLMODE, D3DCULL_NONE},
};
constexpr StateValue kStageNeeds[] = {
    {D3DTSS_COLOROP, D3DTOP_SELECTARG1}, {D3DTSS_COLORARG1, D3DTA_TEXTURE},    {D3DTSS_ALPHAOP, D3DTOP_MODULATE},
    {D3DTSS_ALPHAARG1, D3DTA_TEXTURE},   {D3DTSS_ALPHAARG2, D3DTA_TFACTOR},    {D3DTSS_MAGFILTER, D3DTEXF_POINT},
    {D3DTSS_MINFILTER, D3DTEXF_POINT},   {D3DTSS_ADDRESSU, D3DTADDRESS_CLAMP}, {D3DTSS_ADDRESSV, D3DTADDRESS_CLAMP},
};

}  // namespace

PipelineStates::PipelineStates() {
    for (const auto& [state, value] : kRenderDefaults) render_[state] = value;
    for (const auto& [state, value] : kStageDefaults) stage_[state] = value;
}

bool PipelineStates::setRenderState(DWORD state, DWORD value) {
    if (state >= render_.size()) return false;
    render_[state] = value;
    // The factor changes with every fading sprite and never decides whether the states fit.
    if (state != D3DRS_TEXTUREFACTOR) compared_ = false;
    return true;
}

bool PipelineStates::setStageState(DWORD state, DWORD value) {
    if (state >= stage_.size()) return false;
    stage_[state] = value;
    compared_ = false;
    return true;
}

bool PipelineStates::fitRasteriser() {
    if (compared_) return fit_;
    const auto renderFits = [&](const StateValue& need) { return render_[need.state] == need.value; };
    const auto stageFits = [&](const StateValue& need) { return stage_[need.state] == need.value; };
    fit_ = std::ranges::all_of(kRenderNeeds, renderFits) && std::ranges::all_of(kStageNeeds, stageFits);
    compared_ = true;
    return fit_;
}

}  // namespace platform
