#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/posix/windows/XLibrary.h"

/// A connection to the X server that the environment names.
class XServer {
 public:
  XServer();
  ~XServer();
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  /// False when there is no server or nothing that speaks to one; nothing else may then be called.
  explicit operator bool() const { return connection_ != nullptr; }

  /// The windows of programs, the topmost first, without those that are not shown.
  std::vector<xcb_window_t> ClientWindows();

  /// The process that says of a window that it is its own, 0 for none on this machine.
  uint32_t ProcessOf(xcb_window_t window);
  bool HasOwner(xcb_window_t window);

  void AskToClose(xcb_window_t window);
  void EndClientOf(xcb_window_t window);

 private:
  xcb_atom_t Atom(const std::string& name);
  std::vector<uint32_t> Numbers(xcb_window_t window, const std::string& property);
  std::string Property(xcb_window_t window, const std::string& name, uint8_t format);
  std::vector<xcb_window_t> ShownChildren(xcb_window_t window);
  void Flush();

  const XLibrary* const x_ = XLibrary::Load();
  xcb_connection_t* connection_ = nullptr;
  xcb_window_t root_ = 0;
};
