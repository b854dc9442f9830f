#pragma once

#include "BlockFinding.h"
#include "JSONBlock.h"
#include "OwnedNames.h"
#include "ToolFile.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace wendlow {

/// One of a tool's JSON files with the document that its block makes of it. Read once for one verb
/// or one scan; neither copied nor moved, since the document points into the bytes.
struct JSONFile {
    /// What a tool's file is written in.
    struct Kind {
        std::string_view seed = JSONBlock::seed; ///< what a file that does not exist is read as
        JSONDialect dialect = JSONDialect::json;
        const char* language = "JSON"; ///< said in sentences
    };

    template<class Block>
    JSONFile(const std::filesystem::path& configured, ToolFile::Purpose purpose, const Block& block,
             Kind kindOf)
        : file(ToolFile::read(configured, purpose)), kind(kindOf), document(block.read(bytes())) {
        if (!document)
            if (auto scanned = JSONText::scanWithTrivia(bytes(), kind.dialect))
                unfit.emplace(*std::move(scanned));
    }
    template<class Block>
    JSONFile(const std::filesystem::path& configured, ToolFile::Purpose purpose, const Block& block)
        : JSONFile(configured, purpose, block, Kind{}) {}
    JSONFile(const JSONFile&) = delete;
    JSONFile& operator=(const JSONFile&) = delete;

    /// What a plan starts from. Nothing once `file` is moved into one, and neither is the document.
    std::string_view bytes() const { return file.bytesOr(kind.seed); }
    /// What is in the file, also in one that no verb would plan for: what is there runs
    /// nevertheless. Null: it does not scan at all.
    const JSONDocument* contents() const {
        if (document)
            return &*document;
        return unfit ? &*unfit : nullptr;
    }
    /// What `block` finds in it.
    template<class Block, class... More>
    BlockFinding find(const Block& block, const More&... more) const {
        return file.bytes ? block.find(*file.bytes, document, more...)
                          : BlockFinding{BlockFinding::FileAbsent{}};
    }
    /// Why no verb may plan for it.
    std::optional<Observation> refusal() const {
        return file.refusal(JSONBlock::reason(document), kind.language);
    }
    /// Whether it is unfit to be edited and nothing in it is ours: our name is nowhere in it. A
    /// removal then has nothing to do there, and passes by.
    bool isNoneOfOurs() const { return unfit && !bytes().contains(OwnedNames::server); }
    /// Why no removal may plan for it.
    std::optional<Observation> removalRefusal() const {
        return isNoneOfOurs() ? std::nullopt : refusal();
    }
    /// What `block` would take out of it, being asked only where it could take something.
    template<class Block, class... More>
    JSONBlock::Result<RemovedBlock> removed(const Block& block, const More&... more) const {
        if (isNoneOfOurs())
            return RemovedBlock{};
        return block.removed(bytes(), *document, more...);
    }

    ToolFile file;
    Kind kind;
    JSONBlock::Readable document;
    std::optional<JSONDocument> unfit; ///< scans, and is not fit to be edited
};

} // namespace wendlow
