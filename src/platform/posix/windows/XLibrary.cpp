#include "platform/posix/windows/XLibrary.h"

#include <dlfcn.h>
#include <optional>

namespace {

template <class Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

std::optional<XLibrary> LoadLibrary() {
  void* library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return {};
  XLibrary x = {};
  const bool complete =
      Find(library, "xcb_connect", x.connect) && Find(library, "xcb_disconnect", x.disconnect) &&
      Find(library, "xcb_connection_has_error", x.hasError) && Find(library, "xcb_get_setup", x.setup) &&
      Find(library, "xcb_setup_roots_iterator", x.roots) && Find(library, "xcb_intern_atom", x.internAtom) &&
      Find(library, "xcb_intern_atom_reply", x.internAtomReply) &&
      Find(library, "xcb_get_property", x.property) &&
      Find(library, "xcb_get_property_reply", x.propertyReply) &&
      Find(library, "xcb_get_property_value", x.propertyValue) &&
      Find(library, "xcb_get_property_value_length", x.propertyLength) &&
      Find(library, "xcb_query_tree", x.tree) && Find(library, "xcb_query_tree_reply", x.treeReply) &&
      Find(library, "xcb_query_tree_children", x.children) &&
      Find(library, "xcb_query_tree_children_length", x.childCount) &&
      Find(library, "xcb_get_window_attributes", x.attributes) &&
      Find(library, "xcb_get_window_attributes_reply", x.attributesReply) &&
      Find(library, "xcb_send_event", x.sendEvent) && Find(library, "xcb_kill_client", x.killClient);
  return complete ? std::optional(x) : std::nullopt;
}

}  // namespace

const XLibrary* XLibrary::Load() {
  static const std::optional<XLibrary> loaded = LoadLibrary();
  return loaded ? &*loaded : nullptr;
}
