#pragma once

#include <memory>
#include <new>
#include <pcre2.h>
#include <string>
#include <string_view>

/// The engine's objects as types that own what they name, and what its users have in common.

template <auto Free>
struct Freed {
  template <class T>
  void operator()(T* object) const {
    Free(object);
  }
};
using Code = std::unique_ptr<pcre2_code, Freed<pcre2_code_free>>;
using CompileContext = std::unique_ptr<pcre2_compile_context, Freed<pcre2_compile_context_free>>;
using MatchContext = std::unique_ptr<pcre2_match_context, Freed<pcre2_match_context_free>>;
using MatchData = std::unique_ptr<pcre2_match_data, Freed<pcre2_match_data_free>>;
using JitStack = std::unique_ptr<pcre2_jit_stack, Freed<pcre2_jit_stack_free>>;

template <class T>
T Allocated(T object) {
  if (!object) throw std::bad_alloc();
  return object;
}

inline PCRE2_SPTR Units(std::string_view text) {
  return reinterpret_cast<PCRE2_SPTR>(text.empty() ? "" : text.data());
}

/// Null, and the error, when the expression does not compile.
Code Compile(std::string_view expression, uint32_t options, int& error, size_t& errorOffset);

std::string ErrorText(int code);
