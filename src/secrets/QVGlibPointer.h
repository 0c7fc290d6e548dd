#pragma once

#include <glib-object.h>
#include <memory>

/// Gives back a GLib pointer by the function that its type needs.
template<auto release>
struct QVGlibRelease
{
    void operator()(auto *pointer) const { release(pointer); }
};

/// Owns one reference to a GObject.
template<class T>
using QVGlibPointer = std::unique_ptr<T, QVGlibRelease<g_object_unref>>;
