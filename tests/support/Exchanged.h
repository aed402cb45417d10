#pragma once

#include <type_traits>

#include "platform/Platform.h"
#include "support/ActionFixture.h"

/// The real platform with one capability exchanged.
template <class Capability>
ActionFixture::Wrap Exchanged(Capability* Platform::*member, std::type_identity_t<Capability>& other) {
  return [member, &other](const Platform& real) {
    Platform platform = real;
    platform.*member = &other;
    return platform;
  };
}
