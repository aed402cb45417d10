#include <algorithm>

#include "fuzz/Fuzz.h"
#include "interaction/Vekversionresource.h"
#include "support/VersionImage.h"

namespace {

const VersionImage kImages[] = {
    {.tables = {{"040904b0", {{"CompanyName", "Hello"}, {"Comments", ""}}}}},
    {.is64Bit = true,
     .translation = "040704b0",
     .tables = {{"040704B0", {{"A", "\u00E4\u8A9E"}}}, {"x", {}}}},
    {.translation = "", .tables = {}},
};

/// What the builder is given comes back.
void CheckInverse(std::string_view input) {
  const StringList fields = Fields(input, 4);
  VersionImage image{.is64Bit = fields[0].size() % 2 == 1, .tables = {{"040904b0", {}}}};
  for (size_t i = 0; i < 4; ++i) image.file[i] = static_cast<uint16_t>(fields[i].size() * 257);
  std::string name = "N";
  for (const std::string& field : fields) {
    std::string text;
    for (size_t i = 0; i < field.size();) {
      const char32_t c = NextCodePoint(field, i);
      if (c > 0 && c < 0xD800) AppendUtf8(text, c);
    }
    image.tables[0].strings.emplace_back(name += 'n', text);
  }
  const std::string bytes = image.Bytes();
  if (bytes.size() > 0xF000) return;  // more than its lengths can tell
  const auto resource = ReadVersionResource(
      [&bytes](uint64_t at, size_t count) { return at < bytes.size() ? bytes.substr(at, count) : ""; });
  Require(resource.has_value(), "a sound resource is found");
  Require(std::ranges::equal(resource->fileVersion, image.file), "the version is another");
  Require(resource->strings == image.tables[0].strings, "the strings are others");
}

}  // namespace

FuzzFormat TargetFormat() {
  FuzzFormat format{
      .seeds = {"one\x1Ftwo\x1F\x1F\u00E4"},
      .words = {std::string("\0\0", 2), std::string("\xFF\xFF", 2), std::string("\x10\0\0\0", 4),
                std::string("\0\0\0\x80", 4), "MZ", "PE", std::string(kFieldEnd)},
      .runs = 20'000};
  for (const VersionImage& image : kImages) format.seeds.push_back(image.Bytes());
  return format;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view input = InputText(data, size);
  size_t read = 0;
  const auto resource = ReadVersionResource([&](uint64_t at, size_t count) {
    const std::string bytes(at < size ? input.substr(at, count) : std::string_view());
    read += bytes.size();
    return bytes;
  });
  Require(read <= 1'000'000, "more is read than there can be");
  for (const auto& [name, text] :
       resource ? resource->strings : std::vector<std::pair<std::string, std::string>>())
    Require(IsUtf8(name) && IsUtf8(text), "texts are UTF-8");
  CheckInverse(input);
  return 0;
}
