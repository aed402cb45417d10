#include "platform/posix/windows/XServer.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

/// A reply of the server's, which belongs to who received it.
template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <class Reply>
Owned<Reply> Own(Reply* reply) {
  return Owned<Reply>(reply, &std::free);
}

constexpr uint8_t kBytes = 8, kWords = 32;
constexpr uint32_t kMostWords = 1 << 16;

std::string MachineName() {
  char name[HOST_NAME_MAX + 1] = {};
  gethostname(name, sizeof name - 1);
  return name;
}

}  // namespace

XServer::XServer() {
  if (x_ == nullptr) return;
  connection_ = x_->connect(nullptr, nullptr);
  if (x_->hasError(connection_) == 0) {
    root_ = x_->roots(x_->setup(connection_)).data->root;
  } else {
    x_->disconnect(connection_);
    connection_ = nullptr;
  }
}

XServer::~XServer() {
  if (connection_ != nullptr) x_->disconnect(connection_);
}

/// A window manager keeps the list; without one the windows of programs stand right below the root.
std::vector<xcb_window_t> XServer::ClientWindows() {
  std::vector<xcb_window_t> windows = Numbers(root_, "_NET_CLIENT_LIST_STACKING");
  if (windows.empty()) windows = ShownChildren(root_);
  std::ranges::reverse(windows);
  return windows;
}

std::vector<xcb_window_t> XServer::ShownChildren(xcb_window_t window) {
  const auto tree = Own(x_->treeReply(connection_, x_->tree(connection_, window), nullptr));
  std::vector<xcb_window_t> shown;
  if (!tree) return shown;
  const xcb_window_t* const children = x_->children(tree.get());
  std::copy_if(children, children + x_->childCount(tree.get()), std::back_inserter(shown),
               [this](xcb_window_t child) {
                 const auto attributes =
                     Own(x_->attributesReply(connection_, x_->attributes(connection_, child), nullptr));
                 return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                        attributes->override_redirect == 0;
               });
  return shown;
}

uint32_t XServer::ProcessOf(xcb_window_t window) {
  const std::vector<uint32_t> process = Numbers(window, "_NET_WM_PID");
  if (process.empty()) return 0;
  // The number means nothing when the program runs on another machine.
  const std::string machine = Property(window, "WM_CLIENT_MACHINE", kBytes);
  return machine.empty() || machine == MachineName() ? process.front() : 0;
}

bool XServer::HasOwner(xcb_window_t window) {
  const std::vector<uint32_t> owner = Numbers(window, "WM_TRANSIENT_FOR");
  return !owner.empty() && owner.front() != 0 && owner.front() != root_;
}

void XServer::AskToClose(xcb_window_t window) {
  const xcb_atom_t protocols = Atom("WM_PROTOCOLS"), request = Atom("WM_DELETE_WINDOW");
  const std::vector<uint32_t> understood = Numbers(window, "WM_PROTOCOLS");
  if (std::ranges::find(understood, request) == understood.end()) return;
  xcb_client_message_event_t event = {};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = kWords;
  event.window = window;
  event.type = protocols;
  event.data.data32[0] = request;
  x_->sendEvent(connection_, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
  Flush();
}

void XServer::EndClientOf(xcb_window_t window) {
  x_->killClient(connection_, window);
  Flush();
}

/// The server answers in turn: what was sent before has then been done.
void XServer::Flush() { Atom("WM_STATE"); }

xcb_atom_t XServer::Atom(const std::string& name) {
  const auto cookie = x_->internAtom(connection_, 0, static_cast<uint16_t>(name.size()), name.c_str());
  const auto reply = Own(x_->internAtomReply(connection_, cookie, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<uint32_t> XServer::Numbers(xcb_window_t window, const std::string& property) {
  const std::string bytes = Property(window, property, kWords);
  std::vector<uint32_t> numbers(bytes.size() / sizeof(uint32_t));
  if (!numbers.empty()) std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(uint32_t));
  return numbers;
}

/// Empty when the window has none of that form.
std::string XServer::Property(xcb_window_t window, const std::string& name, uint8_t format) {
  const auto cookie =
      x_->property(connection_, 0, window, Atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords);
  const auto reply = Own(x_->propertyReply(connection_, cookie, nullptr));
  if (!reply || reply->format != format) return {};
  return std::string(static_cast<const char*>(x_->propertyValue(reply.get())),
                     static_cast<size_t>(x_->propertyLength(reply.get())));
}
