#pragma once

#include "Model/EditorMoment.h"

#include <QString>
#include <QStringList>

#include <string>
#include <string_view>
#include <vector>

/// What a session of an AI tool is in words: what stands on its card and in its lightbox. Texts as
/// they came; a row that shows one cuts it itself.
namespace wendlow::MomentTextCard {

/// A time as the Editor's moments show it: "4:12 PM".
QString time(EditorDate at);
/// Those that can be the widest: of the hours and minutes with two wide digits each.
QStringList wideTimes();

/// Whether a title is no more than the number that a tool gives its session.
bool isSessionID(std::string_view text);
/// The moment's own title, or "Session at" and its time.
QString title(const EditorMoment& moment);
/// In one line; empty for none.
QString abstract(const EditorMoment& moment);
/// The tool; empty for none.
QString badge(const EditorMoment& moment);

/// Each path by its last part, with as many before it as it takes to tell it from the others, or
/// all of it.
std::vector<std::string> displayNames(const std::vector<std::string>& files);
/// Which files were seen, in one line; empty for none.
QString filesLine(const EditorMoment& moment);
/// The same, a line each.
QString filesTooltip(const EditorMoment& moment);

} // namespace wendlow::MomentTextCard
