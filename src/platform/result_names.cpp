#include <dxerr8.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

struct ResultName {
    std::uint32_t code;
    const char* name;
};

/// Results that Direct3D 8 and the system beneath it can give.
constexpr std::array kResultNames{
    ResultName{0x00000000, "S_OK"},
    ResultName{0x80004001, "E_NOTIMPL"},
    ResultName{0x80004002, "E_NOINTERFACE"},
    ResultName{0x80004005, "E_FAIL"},
    ResultName{0x80070057, "E_INVALIDARG"},
    ResultName{0x8007000E, "E_OUTOFMEMORY"},
    ResultName{0x8876017C, "D3DERR_OUTOFVIDEOMEMORY"},
    ResultName{0x88760818, "D3DERR_WRONGTEXTUREFORMAT"},
    ResultName{0x88760827, "D3DERR_DRIVERINTERNALERROR"},
    ResultName{0x88760866, "D3DERR_NOTFOUND"},
    ResultName{0x88760867, "D3DERR_MOREDATA"},
    ResultName{0x88760868, "D3DERR_DEVICELOST"},
    ResultName{0x88760869, "D3DERR_DEVICENOTRESET"},
    ResultName{0x8876086A, "D3DERR_NOTAVAILABLE"},
    ResultName{0x8876086B, "D3DERR_INVALIDDEVICE"},
    ResultName{0x8876086C, "D3DERR_INVALIDCALL"},
    ResultName{0x8876086D, "D3DERR_DRIVERINVALIDCALL"},
};

}  // namespace

const char* DXGetErrorString8A(HRESULT result) {
    const auto* known = std::ranges::find(kResultNames, static_cast<std::uint32_t>(result), &ResultName::code);
    return known == kResultNames.end() ? "Unknown" : known->name;
}
