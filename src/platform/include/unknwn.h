#pragma once

#include <windows.h>

/// Root of the reference counted interfaces. A function that hands out an object hands out one reference with it.
struct IUnknown {
    /// One more owner. The answer is the new count, for curiosity only.
    virtual ULONG AddRef() = 0;
    /// One owner less; the last one destroys the object.
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};
