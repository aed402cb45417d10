#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "coreapi/Vekerrors.h"

enum class XmlPlace { Element, Attribute };

/// Appends the text as it is written at that place, so that reading gives the same text. Raises EVekError
/// for text that XML cannot hold: bytes that are not UTF-8, and NUL.
void AppendXmlText(std::string& xml, std::string_view text, XmlPlace place);

/// The same for an element that holds program text: in a CDATA section where that keeps it readable.
void AppendXmlScript(std::string& xml, std::string_view text);

/// A reference that stands for nothing; the position is that of its '&'.
class EXmlReference : public EVekError {
 public:
  EXmlReference(const std::string& message, size_t position) : EVekError(message), position_(position) {}
  size_t Position() const { return position_; }

 private:
  size_t position_;
};

/// The text with its references (&lt; &gt; &amp; &quot; &apos; &#10; &#xA;) replaced; raises EXmlReference.
std::string DecodeXmlText(std::string_view xml);
