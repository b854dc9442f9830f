#include "Floor/EditorTranscriptTool.h"

#include "Floor/RowText.h"
#include "PlainText.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QTextBoundaryFinder>

namespace wendlow {

namespace {

constexpr std::array known{
    std::pair{"claude", "Claude Code"},     std::pair{"claude-code", "Claude Code"},
    std::pair{"claudecode", "Claude Code"}, std::pair{"codex", "Codex"},
    std::pair{"cursor", "Cursor"},          std::pair{"opencode", "opencode"},
    std::pair{"copilot", "Copilot"},        std::pair{"github-copilot", "Copilot"},
};

} // namespace

std::string EditorTranscriptTool::name(std::string_view raw) {
    const auto* const found = std::ranges::find(known, PlainText::lowerCased(raw),
                                                [](const auto& each) { return each.first; });
    if (found != known.end())
        return found->second;
    const QString own = RowText::plain(raw);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, own);
    const auto first = std::max<qsizetype>(characters.toNextBoundary(), 0);
    return (own.left(first).toUpper() + own.mid(first)).toStdString();
}

} // namespace wendlow
