#pragma once

#include <gio/gio.h>
#include <memory>

/// Owners of what GLib hands out, each of one reference. Main thread.
namespace velmorin {

struct GDeleter {
    void operator()(char* text) const { g_free(text); }
    void operator()(char** texts) const { g_strfreev(texts); }
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
    void operator()(GSource* source) const { g_source_unref(source); }
};
using GText = std::unique_ptr<char, GDeleter>;
using GTexts = std::unique_ptr<char*, GDeleter>;
using GKeys = std::unique_ptr<GKeyFile, GDeleter>;
using GValueTree = std::unique_ptr<GVariant, GDeleter>;
using GHeldSource = std::unique_ptr<GSource, GDeleter>;

/// The same for objects.
struct GUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using GOwned = std::unique_ptr<Object, GUnref>;

} // namespace velmorin
