#pragma once

#include <glib-object.h>
#include <memory>

/// A deleter for GLib pointers, which calls \a release.
template<auto release>
struct QVGlibRelease
{
    void operator()(auto *pointer) const { release(pointer); }
};

/// Owns one reference to a GObject.
template<class T>
using QVGlibPointer = std::unique_ptr<T, QVGlibRelease<g_object_unref>>;
