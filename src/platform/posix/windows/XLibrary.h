#pragma once

#include <memory>
#include <xcb/xcb.h>

/// The functions of the library that speaks to an X server. It is loaded when windows are asked for, and may
/// be missing.
struct XLibrary {
  /// Null when the library or one of the functions is missing.
  static const XLibrary* Load();

  decltype(&xcb_connect) connect;
  decltype(&xcb_disconnect) disconnect;
  decltype(&xcb_connection_has_error) hasError;
  decltype(&xcb_get_setup) setup;
  decltype(&xcb_setup_roots_iterator) roots;
  decltype(&xcb_intern_atom) internAtom;
  decltype(&xcb_intern_atom_reply) internAtomReply;
  decltype(&xcb_get_property) property;
  decltype(&xcb_get_property_reply) propertyReply;
  decltype(&xcb_get_property_value) propertyValue;
  decltype(&xcb_get_property_value_length) propertyLength;
  decltype(&xcb_query_tree) tree;
  decltype(&xcb_query_tree_reply) treeReply;
  decltype(&xcb_query_tree_children) children;
  decltype(&xcb_query_tree_children_length) childCount;
  decltype(&xcb_get_window_attributes) attributes;
  decltype(&xcb_get_window_attributes_reply) attributesReply;
  decltype(&xcb_send_event) sendEvent;
  decltype(&xcb_kill_client) killClient;
};
