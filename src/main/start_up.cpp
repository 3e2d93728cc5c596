#include "start_up.h"

#include "host.h"
#include "script.h"

namespace grub {

bool prepareHost(const OwnOptions& options) {
    platform::offerProgramIcon();
    if (!options.dataDirectory.empty()) platform::setDataDirectory(options.dataDirectory);
    return options.scriptFile.empty() || platform::playScript(options.scriptFile);
}

}  // namespace grub
