#pragma once

#include <glib-object.h>
#include <memory>

namespace velmorin {

/// Gives back what GLib handed out.
struct GDeleter {
    void operator()(char* text) const { g_free(text); }
    void operator()(char** texts) const { g_strfreev(texts); }
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using GText = std::unique_ptr<char, GDeleter>;
using GTexts = std::unique_ptr<char*, GDeleter>;
using GKeys = std::unique_ptr<GKeyFile, GDeleter>;
using GValueTree = std::unique_ptr<GVariant, GDeleter>;

/// The same for objects, each with one reference.
struct GUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using GOwned = std::unique_ptr<Object, GUnref>;

} // namespace velmorin
