// Any file decodes or is refused with a reason; the process goes on.
#include <cstdlib>

#include "image_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string fault;
    const bool decodes = grub::pictureDecodes({data, size}, &fault);
    if (decodes != fault.empty()) std::abort();
    return 0;
}
