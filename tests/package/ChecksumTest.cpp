#include <cstdio>

#include "gtest/gtest.h"

#include "checksum/HashAlgMD5_U.h"
#include "checksum/VekCRCCalc.h"
#include "checksum/Vekcrcengine.h"
#include "coreapi/Vekerrors.h"
#include "platform/CreatePlatform.h"
#include "support/OsFixture.h"
#include "support/SystemText.h"
#include "support/TempFolder.h"

namespace {

/// Bytes without a pattern that an engine could get right by accident.
std::string Bytes(size_t count) {
  std::string bytes(count, '\0');
  uint32_t state = 1;
  for (char& c : bytes) c = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
  return bytes;
}

struct Checksums : testing::Test {
  static bool GoOn() { return false; }

  std::string MD5(std::string_view text) {
    THashArray digest;
    md5.HashString(text, digest);
    return md5.HashToDisplay(digest);
  }

  TempFolder folder;
  std::unique_ptr<PlatformOwner> owner = CreatePlatform({});
  const Platform& platform = owner->Get();
  THashAlgMD5 md5{platform, GoOn};
};

TEST_F(Checksums, MD5OfThePublishedTexts) {
  const struct {
    const char *text, *digest;
  } cases[] = {
      {"", "D41D8CD98F00B204E9800998ECF8427E"},
      {"a", "0CC175B9C0F1B6A831C399E269772661"},
      {"abc", "900150983CD24FB0D6963F7D28E17F72"},
      {"message digest", "F96B697D7CB7938D525A2F31AAF161D0"},
      {"abcdefghijklmnopqrstuvwxyz", "C3FCD3D76192E4007DFB496CCA67E13B"},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789", "D174AB98D277D9F5A5611C2C9F419D9F"},
      {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
       "57EDF4A22BE3C955AC49DA2E2107B67A"},
  };
  for (const auto& wanted : cases) EXPECT_EQ(MD5(wanted.text), wanted.digest) << wanted.text;
  THashArray digest;
  md5.HashString("", digest);
  EXPECT_EQ(md5.HashToDataString(digest).substr(0, 4), "\xD4\x1D\x8C\xD9");
}

TEST_F(Checksums, MD5DoesNotDependOnHowTheTextArrives) {
  const THashAlgMD5Engine engine;
  for (const size_t length : {55u, 56u, 63u, 64u, 65u, 119u, 128u, 1000u}) {
    const std::string bytes = Bytes(length);
    for (const size_t first : {1u, 8u, 54u}) {
      MD5_CTX context;
      engine.MD5Init(context);
      engine.MD5Update(context, std::string_view(bytes).substr(0, first));
      engine.MD5Update(context, "");
      for (size_t at = first; at < length; at += 70)
        engine.MD5Update(context, std::string_view(bytes).substr(at, 70));
      THashArray digest;
      engine.MD5Final(std::span(digest).first<16>(), context);
      EXPECT_EQ(md5.HashToDisplay(digest), MD5(bytes)) << length << ' ' << first;
    }
  }
}

uint32_t SlowCRC32(uint32_t value, std::string_view bytes) {
  for (const char c : bytes) {
    value ^= static_cast<uint8_t>(c);
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) * 0xEDB88320);
  }
  return value;
}

TEST_F(Checksums, CRC32IsWhatItsDefinitionSays) {
  EXPECT_EQ(~UpdateCRC32(kCRCStart, "123456789"), 0xCBF43926);
  const std::string bytes = Bytes(700);
  for (size_t length = 0; length < 600; ++length) {
    const std::string_view part = std::string_view(bytes).substr(length % 17, length);
    for (const uint32_t start : {kCRCStart, 0u, 0x12345678u}) {
      const uint32_t wanted = SlowCRC32(start, part);
      ASSERT_EQ(UpdateCRC32(start, part), wanted) << length;
      ASSERT_EQ(UpdateCRC32ByTables(start, part), wanted) << length;
    }
  }
}

TEST_F(Checksums, FilesOfAnyLengthAreReadToTheirEnd) {
  for (const size_t length : {0u, 255u, 256u, 1024u, 131071u, 131072u, 131073u, 500000u}) {
    const std::string bytes = Bytes(length);
    folder.Write("file", bytes);
    char crc[16];
    std::snprintf(crc, sizeof crc, "$%08X", static_cast<unsigned>(~SlowCRC32(kCRCStart, bytes)));
    EXPECT_EQ(GetCRC32(platform, folder.Path("file"), GoOn), crc) << length;
    THashArray digest;
    ASSERT_TRUE(md5.HashFile(folder.Path("file"), digest));
    EXPECT_EQ(md5.HashToDisplay(digest), MD5(bytes)) << length;
  }
}

TEST_F(Checksums, FilesThatCannotBeReadHaveNone) {
  folder.Write("held", "x");
  const ExclusiveOpen held(folder.Path("held"));
  const auto expectNone = [&](const char* name, Win32Error code, const StopQuestion& stop) {
    THashArray digest;
    EXPECT_FALSE(THashAlgMD5(platform, stop).HashFile(folder.Path(name), digest)) << name;
    try {
      GetCRC32(platform, folder.Path(name), stop);
      ADD_FAILURE() << name;
    } catch (const EVekError& error) {
      EXPECT_EQ(error.what(), SystemText(code));
    }
  };
  expectNone("held", Win32Error::SharingViolation, GoOn);
  expectNone("missing", Win32Error::FileNotFound, GoOn);
  folder.Write("file", "x");
  expectNone("file", Win32Error::RequestAborted, [] { return true; });
}

}  // namespace
