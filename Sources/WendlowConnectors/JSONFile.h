#pragma once

#include "JSONBlock.h"
#include "ToolFile.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace wendlow {

/// One of a tool's JSON files with the document that its block makes of it. Read once for one verb
/// or one scan; neither copied nor moved, since the document points into the bytes.
struct JSONFile {
    /// A file that does not exist is read as `seedBytes`.
    template<class Block>
    JSONFile(const std::filesystem::path& configured, ToolFile::Purpose purpose, const Block& block,
             std::string_view seedBytes = JSONBlock::seed)
        : file(ToolFile::read(configured, purpose)), seed(seedBytes),
          document(block.read(bytes())) {}
    JSONFile(const JSONFile&) = delete;
    JSONFile& operator=(const JSONFile&) = delete;

    /// What a plan starts from. Nothing once `file` is moved into one, and neither is the document.
    std::string_view bytes() const { return file.bytesOr(seed); }
    /// Why no verb may plan for it.
    std::optional<Observation> refusal(std::string_view language = "JSON") const {
        return file.refusal(JSONBlock::reason(document), language);
    }

    ToolFile file;
    std::string_view seed;
    JSONBlock::Readable document;
};

} // namespace wendlow
