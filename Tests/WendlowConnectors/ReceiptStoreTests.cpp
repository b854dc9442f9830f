#include "ReceiptStore.h"

#include "Files.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace testing;

const ConnectorReceipt full{
    .created = {Created::settingsFile, Created::eventArray, Created::codexMCPTable},
    .adopted = {Adopted::openCodeMCPEntryShell},
    .trustSlots = {"b \"quoted\"", "a/é"},
    .appVersion = "1.4.0"};

TEST(ReceiptStore, WritesEqualReceiptsAsEqualBytes) {
    const TemporaryHome home;
    const Umask umask(0022);
    const ReceiptStore store{home / "Library/Wendlow/Connectors/codex.json"};
    ASSERT_TRUE(store.write(full));
    EXPECT_EQ(get(store.file), R"({
  "adopted": [
    "openCodeMCPEntryShell"
  ],
  "appVersion": "1.4.0",
  "created": [
    "codexMCPTable",
    "eventArray",
    "settingsFile"
  ],
  "trustSlots": [
    "a/é",
    "b \"quoted\""
  ]
})");
    EXPECT_EQ(modeOf(store.file), 0600U);
    for (const auto* folder : {"Library", "Library/Wendlow", "Library/Wendlow/Connectors"})
        EXPECT_EQ(modeOf(home / folder), 0700U);
    EXPECT_EQ(store.read(), full);

    ASSERT_TRUE(store.write({}));
    EXPECT_EQ(get(store.file),
              "{\n  \"adopted\": [],\n  \"created\": [],\n  \"trustSlots\": []\n}");
    EXPECT_EQ(namesIn(store.file.parent_path()).size(), 1U);
    store.remove();
    store.remove();
    EXPECT_EQ(get(store.file), std::nullopt);
    EXPECT_EQ(store.read(), ConnectorReceipt());
}

TEST(ReceiptStore, ReadsWhatItDoesNotUnderstandAsEmpty) {
    const ConnectorReceipt some{
        .created = {Created::mcpFile}, .adopted = {}, .trustSlots = {}, .appVersion = {}};
    const std::pair<const char*, ConnectorReceipt> cases[] = {
        {R"({"created":[]})", {}},
        {R"({"created":["mcpFile"]})", some},
        {R"({"created":["mcpFile"],"adopted":null,"appVersion":null,"later":{"x":1}})", some},
        {R"({"created":["mcpFile","fromTheFuture"]})", {}},
        {R"({"created":["mcpFile"],"adopted":["fromTheFuture"]})", {}},
        {R"({"created":["mcpFile"],"trustSlots":["a",1]})", {}},
        {R"({"created":["mcpFile"],"appVersion":2})", {}},
        {R"({"created":null,"trustSlots":["a"]})", {}},
        {R"({"trustSlots":["a"]})", {}},
        {R"({"created":"mcpFile"})", {}},
        {R"(["mcpFile"])", {}},
        {"\xEF\xBB\xBF{\"created\":[\"mcpFile\"]}", {}},
    };
    const TemporaryHome home;
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(ReceiptStore{put(home / "receipt", bytes)}.read(), expected) << bytes;

    const ReceiptStore store{home / "cut"};
    ASSERT_TRUE(store.write(full));
    const auto whole = *get(store.file);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(ReceiptStore{put(home / "cut", std::string_view(whole).substr(0, length))}.read(),
                  ConnectorReceipt())
            << length;
}

TEST(ReceiptStore, SaysWhyItCouldNotWrite) {
    const TemporaryHome home;
    put(home / "file", "");
    std::filesystem::create_directory(home / "folder");
    EXPECT_EQ(ReceiptStore{home / "file/receipt"}.write({}).error(),
              (home / "file").string() + " could not be written: File exists");
    EXPECT_EQ(ReceiptStore{home / "folder"}.write({}).error(),
              (home / "folder").string() + " could not be written: Is a directory");
    EXPECT_EQ(ReceiptStore{home / "folder"}.read(), ConnectorReceipt());
}

} // namespace
} // namespace wendlow
