#pragma once

#include "engine_string.h"
#include "shared_buffer.h"

namespace grub {

/// Where named resources come from.
class ResourceSource {
public:
    virtual ~ResourceSource() = default;
    /// Does nothing; holds a place in the interface.
    virtual void reserved() {}
    /// Whether `load` would find `name`. Never shows a message.
    [[nodiscard]] virtual bool exists(const EngineString& name) = 0;
    /// The bytes of `name`; the empty buffer when it is unknown or cannot be read.
    [[nodiscard]] virtual SharedBuffer load(const EngineString& name) = 0;

protected:
    ResourceSource() = default;
    ResourceSource(const ResourceSource&) = default;
    ResourceSource& operator=(const ResourceSource&) = default;
};

}  // namespace grub
