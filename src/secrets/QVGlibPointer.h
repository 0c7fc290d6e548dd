#pragma once

#include <gio/gio.h>
#include <memory>

/// Gives back a GLib pointer by the function that its type needs.
template<auto release>
struct QVGlibRelease
{
    template<class T>
    void operator()(T *pointer) const
    {
        release(pointer);
    }
};

/// Owns one reference to a GObject.
template<class T>
using QVGlibPointer = std::unique_ptr<T, QVGlibRelease<g_object_unref>>;
