#include "coreapi/Vekregexprcode.h"

Code Compile(std::string_view expression, uint32_t options, int& error, size_t& errorOffset) {
  const CompileContext context(Allocated(pcre2_compile_context_create(nullptr)));
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
  Code code(
      pcre2_compile(Units(expression), expression.size(), options, &error, &errorOffset, context.get()));
  // Where this does not work the engine interprets the expression.
  if (code) pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
  return code;
}

std::string ErrorText(int code) {
  PCRE2_UCHAR text[256] = {};
  pcre2_get_error_message(code, text, sizeof text);
  return reinterpret_cast<const char*>(text);
}
