// SPDX-License-Identifier: MIT
#pragma once

#include <glib-object.h>

#include <memory>

namespace nubo::simulator {

struct GObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// Owns one reference of a GObject.
template <class Object>
using GObjectPtr = std::unique_ptr<Object, GObjectDeleter>;

/// Takes a further reference of an object that somebody else owns.
template <class Object>
GObjectPtr<Object> shareGObject(Object* object) {
    return GObjectPtr<Object>(static_cast<Object*>(g_object_ref(object)));
}

}  // namespace nubo::simulator
