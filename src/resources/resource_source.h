#pragma once

#include "engine_string.h"
#include "shared_buffer.h"

namespace grub {

/// A source of named resources, such as a package.
class ResourceSource {
public:
    virtual ~ResourceSource() = default;
    /// Whether `load` would find `name`. Never shows a message.
    [[nodiscard]] virtual bool exists(const EngineString& name) = 0;
    /// The bytes of `name`; the empty buffer when the source does not know it or cannot read it.
    [[nodiscard]] virtual SharedBuffer load(const EngineString& name) = 0;

protected:
    ResourceSource() = default;
    ResourceSource(const ResourceSource&) = default;
    ResourceSource& operator=(const ResourceSource&) = default;
};

}  // namespace grub
