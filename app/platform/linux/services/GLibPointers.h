#pragma once

#include <gio/gio.h>
#include <memory>

/// Owners of what GLib counts references of.
namespace velmorin {

struct DropObject {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Kind>
using Object = std::unique_ptr<Kind, DropObject>;

struct DropVariant {
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using Variant = std::unique_ptr<GVariant, DropVariant>;

struct DropSource {
    void operator()(GSource* source) const { g_source_unref(source); }
};
using Source = std::unique_ptr<GSource, DropSource>;

struct DropText {
    void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, DropText>;

} // namespace velmorin
