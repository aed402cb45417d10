#include "gtest/gtest.h"

#include "host/log/XmlText.h"

namespace {

TEST(XmlText, EscapesWhatXmlCannotHold) {
  const struct {
    std::string_view text, inElement, inAttribute;
  } kCases[] = {
      {"a < b && \"c\" ]]>", "a &lt; b &amp;&amp; \"c\" ]]&gt;", "a &lt; b &amp;&amp; &quot;c&quot; ]]&gt;"},
      {"\ta\r\nb", "\ta&#13;\nb", "&#9;a&#13;&#10;b"},
      {std::string_view("\0\x1b\x7F", 3), "\uFFFD\uFFFD\x7F", "\uFFFD\uFFFD\x7F"},
      {"\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBF\xBC", "\uFFFD\uFFFD\uFFFC", "\uFFFD\uFFFD\uFFFC"},
      {"\xED\xA0\x80\xFF\U0001F600", "\uFFFD\uFFFD\uFFFD\uFFFD\U0001F600",
       "\uFFFD\uFFFD\uFFFD\uFFFD\U0001F600"},
  };
  for (const auto& [text, inElement, inAttribute] : kCases) {
    EXPECT_EQ(EscapeXmlText(text), inElement);
    EXPECT_EQ(EscapeXmlAttribute(text), inAttribute);
  }
}

}  // namespace
