#include <dxerr8.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

struct ResultName {
    std::uint32_t code;
    const char* name;
};

/// Results that Direct3D 8, DirectSound 8 and the system beneath them can give.
constexpr std::array kResultNames{
    ResultName{0x00000000, "S_OK"},
    ResultName{0x80004001, "E_NOTIMPL"},
    ResultName{0x80004002, "E_NOINTERFACE"},
    ResultName{0x80004005, "E_FAIL"},
    ResultName{0x80070057, "E_INVALIDARG"},
    ResultName{0x8007000E, "E_OUTOFMEMORY"},
    ResultName{0x80040110, "DSERR_NOAGGREGATION"},
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
    ResultName{0x8878000A, "DSERR_ALLOCATED"},
    ResultName{0x8878001E, "DSERR_CONTROLUNAVAIL"},
    ResultName{0x88780032, "DSERR_INVALIDCALL"},
    ResultName{0x88780046, "DSERR_PRIOLEVELNEEDED"},
    ResultName{0x88780064, "DSERR_BADFORMAT"},
    ResultName{0x88780078, "DSERR_NODRIVER"},
    ResultName{0x88780082, "DSERR_ALREADYINITIALIZED"},
    ResultName{0x88780096, "DSERR_BUFFERLOST"},
    ResultName{0x887800A0, "DSERR_OTHERAPPHASPRIO"},
    ResultName{0x887800AA, "DSERR_UNINITIALIZED"},
    ResultName{0x887800B4, "DSERR_BUFFERTOOSMALL"},
    ResultName{0x88781161, "DSERR_OBJECTNOTFOUND"},
};

}  // namespace

const char* DXGetErrorString8A(HRESULT result) {
    const auto* known = std::ranges::find(kResultNames, static_cast<std::uint32_t>(result), &ResultName::code);
    return known == kResultNames.end() ? "Unknown" : known->name;
}
