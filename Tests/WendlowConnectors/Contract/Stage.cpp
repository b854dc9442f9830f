#include "Stage.h"

#include "ClaudeCode/ClaudeCodeConnector.h"
#include "Codex/CodexConnector.h"
#include "Cursor/CursorConnector.h"
#include "OpenCode/OpenCodeConnector.h"
#include "OpenCode/OpenCodePlugin.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

namespace wendlow::testing {

namespace {

namespace fs = std::filesystem;

/// How the control characters of a file are written in a scenario.
const std::vector<std::pair<std::string, std::string>> pictures{
    {"␉", "\t"}, {"␍", "\r"}, {"␤", "\n"}, {"␁", "\xEF\xBB\xBF"}, {"␀", "\xFF"}};

std::vector<std::pair<std::string, std::string>> swapped(auto pairs) {
    for (auto& [first, second] : pairs)
        std::swap(first, second);
    return pairs;
}

std::string hookEntry(const std::string& command, const std::string& rest) {
    return R"({"type":"command","command":")" + command + '"' + rest + "}";
}

} // namespace

Stage::Stage(const std::string& tool) {
    const fs::path home = m_home.path(), bundle = m_home / "Wendlow.app";
    // The clock stands still, so that the names of copies are known.
    const ConnectorVerb::Surroundings surroundings{
        .now = [] { return Transaction::Date(std::chrono::seconds(1'800'000'000)); },
        .beforeRename =
            [this] {
                if (const auto meanwhile = std::exchange(m_meanwhile, {}))
                    meanwhile();
            }};
    const std::string old = "/Old/Wendlow.app/Contents/MacOS/wendlow-hook --harness " + tool;
    const std::string slot = " --harness " + tool + " --slot ";
    if (tool == "claude-code") {
        const auto paths = ClaudeCodePaths::under(home, bundle);
        m_paths = paths;
        m_connector = std::make_unique<ClaudeCodeConnector>(paths, surroundings);
        m_marks = {{"@pre", R"({"matcher":"mcp__wendlow__.*","hooks":[@pretool]})"},
                   {"@slots", "@rules,@index,@recall"}};
        for (const std::string name : {"rules", "index", "recall", "pretool"})
            m_marks.emplace_back("@" + name, hookEntry("@hook" + slot + name, R"(,"timeout":3)"));
        m_marks.emplace_back("@old", hookEntry(old + " --slot rules", R"(,"timeout":3)"));
    } else if (tool == "codex") {
        const auto paths = CodexPaths::under(home, bundle);
        m_paths = paths;
        m_connector = std::make_unique<CodexConnector>(paths, surroundings);
        const std::string rest =
            R"(,"statusMessage":"Loading Wendlow rules and memory","timeout":3)";
        m_marks = {
            {"@ours",
             hookEntry("@hook --harness codex", rest + R"(,"additionalContextLimit":7500)")},
            {"@old", hookEntry(old, rest)},
            {"@script", hookEntry("python3 @home/fenmoor/wendlow/Scripts/wendlow-hook.py", rest)},
            {"@table", "[mcp_servers.wendlow]␤command = \"@mcp\"␤args = []␤"},
            {"@slot", "@hooks:user_prompt_submit"},
            {"@hash", CodexHook(paths).identity().trustedHash()}};
    } else if (tool == "cursor") {
        const auto paths = CursorPaths::under(home, bundle, m_home / "Applications");
        m_paths = paths;
        m_connector = std::make_unique<CursorConnector>(paths, surroundings);
        m_marks = {{"@prompt", R"({"command":"@hook --harness cursor"})"},
                   {"@pretool", R"({"command":"@hook --harness cursor --slot pretool","matcher":)"
                                R"("^(Task|MCP:(grab|memory_add|meeting_get))$","timeout":3})"},
                   {"@old", R"({"command":")" + old + R"("})"},
                   {"@version",
                    R"(<plist version="1.0"><dict><key>CFBundleShortVersionString</key><string>)"},
                   {"@end", "</string></dict></plist>"}};
    } else {
        const auto paths = OpenCodePaths::under(home, bundle);
        m_paths = paths;
        m_connector = std::make_unique<OpenCodeConnector>(paths, surroundings);
        m_marks = {
            {"@entry", R"({"type":"local","command":["@mcp"],"enabled":true})"},
            {"@plugin", OpenCodePlugin::source(paths.hookBinary)},
            {"@other", OpenCodePlugin::source("/Old/Wendlow.app/Contents/MacOS/wendlow-hook")}};
    }
    m_marks.insert(m_marks.end(),
                   {{"@server", R"({"type":"stdio","command":"@mcp","args":[],"env":{}})"},
                    {"@theirs", tool == "cursor" ? R"({"command":"lint"})" : hookEntry("lint", "")},
                    {"@hooks", m_paths.hooksFile.string()},
                    {"@servers", m_paths.serversFile.string()},
                    {"@receipt", m_paths.receiptFile.string()},
                    {"@folder", m_paths.configDirectory.string()},
                    {"@hook", m_paths.hookBinary.string()},
                    {"@mcp", m_paths.mcpBinary.string()},
                    {"@home", home.string()}});
    // The longest first: "@hooks" is not "@hook" with an "s".
    std::ranges::stable_sort(m_marks, std::greater(),
                             [](const auto& each) { return each.first.size(); });
    put(m_paths.hookBinary, "program", 0755);
    put(m_paths.mcpBinary, "program");
}

std::string Stage::play(const std::string& scenario) {
    std::istringstream lines(scenario);
    for (std::string each; std::getline(lines, each);) {
        if (each.starts_with("  "))
            continue; // what was expected
        m_out += each + "\n";
        if (each.starts_with("during "))
            m_meanwhile = [this, command = each.substr(7)] { arrange(command); };
        else if (!each.empty() && !each.starts_with('#'))
            arrange(each);
    }
    return m_out;
}

void Stage::arrange(const std::string& command) {
    std::istringstream words(command);
    std::string verb, name, text;
    words >> verb >> name;
    std::getline(words >> std::ws, text);
    const fs::path path = filled(name);
    if (name.empty())
        return act(verb);
    if (verb == "put") {
        put(path, m_put[path.string()] = filled(text));
    } else if (verb == "append") {
        put(path, get(path).value_or("") + filled(text));
    } else if (verb == "change") { // one text into another
        const auto arrow = text.find(" => ");
        const std::string before = get(path).value_or("");
        const std::string after =
            replaced(before, {{filled(text.substr(0, arrow)), filled(text.substr(arrow + 4))}});
        EXPECT_NE(before, after) << command;
        put(path, m_put[path.string()] = after);
    } else if (verb == "delete") {
        EXPECT_GT(fs::remove_all(path), 0U) << command;
    } else if (verb == "folder") {
        fs::create_directories(path);
    } else if (verb == "link") {
        fs::create_directories(path.parent_path());
        fs::create_symlink(filled(text), path);
    } else if (verb == "move") {
        fs::rename(path, filled(text));
    } else if (verb == "mode") {
        EXPECT_EQ(::chmod(path.c_str(), static_cast<mode_t>(std::stoi(text, nullptr, 8))), 0);
    } else {
        ADD_FAILURE() << "no such command: " << command;
    }
}

void Stage::act(const std::string& verb) {
    const Tree before = tree();
    if (verb == "scan") {
        const ScanReport report = m_connector->scan();
        line(std::string(text(report.state)) + (report.facts.unreadable ? ", unreadable" : "") +
             (report.facts.foreign ? ", foreign" : ""));
        if (report.identity != m_connector->identity())
            line(report.identity.detail);
        tell(report.observations);
    } else if (verb == "stale") {
        line(m_connector->staleOwnWiring() ? "yes" : "no");
    } else if (verb == "install" || verb == "remove") {
        const auto outcome = verb == "install" ? m_connector->install() : m_connector->remove();
        line(std::string(text(outcome.result)));
        tell(outcome.observations);
        const auto copies = std::ranges::count_if(outcome.observations, [](const auto& said) {
            return said.text == "a copy of the file was made here first";
        });
        EXPECT_EQ(copies, outcome.backups.size());
        for (const fs::path& copy : outcome.backups)
            checkCopy(copy.string(), before);
        const Tree after = tree();
        if (verb == "install" && outcome.result == ConnectorOutcome::Result::changed) {
            EXPECT_EQ(m_connector->install().result, ConnectorOutcome::Result::unchanged);
            EXPECT_EQ(tree(), after);
        }
    } else if (verb == "round") {
        goRound();
    } else if (verb == "nobody") {
        asNobody();
    } else {
        ADD_FAILURE() << "no such verb: " << verb;
    }
    if (verb != "round")
        tell(before, tree());
}

/// Connecting and disconnecting, twice over, gives every file back with its mode.
void Stage::goRound() {
    const auto files = [this] {
        Tree all = tree();
        std::erase_if(all, [](const auto& each) { return !each.second.isFile; });
        return all;
    };
    using Result = ConnectorOutcome::Result;
    const Tree before = files();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(m_connector->install().result, Result::changed);
        EXPECT_EQ(m_connector->scan().state, ConnectorState::connected);
        EXPECT_EQ(m_connector->install().result, Result::unchanged);
        EXPECT_EQ(m_connector->remove().result, Result::changed);
        tell(before, files());
    }
}

void Stage::tell(const Observations& observations) {
    for (const auto& [subject, text, byte] : observations) {
        const auto told = text.rfind("(at byte ");
        EXPECT_EQ(byte, told == std::string::npos
                            ? std::nullopt
                            : std::optional<std::size_t>(std::stoul(text.substr(told + 9))))
            << text;
        if (text == "a copy of the file was made here first")
            line("copied " + marked(subject.substr(0, subject.find(".wendlow-backup-"))));
        else
            line(marked(subject) + ": " + marked(text));
    }
}

void Stage::tell(const Tree& before, const Tree& after) {
    for (const auto& [name, thing] : before)
        if (!after.contains(name))
            line(marked(name) + " is gone");
    for (const auto& [name, thing] : after) {
        const auto was = before.find(name);
        if (was != before.end() && was->second == thing)
            continue;
        std::string shownName = marked(name);
        if (was == before.end() || was->second.mode != thing.mode)
            shownName += fmt::format(" ({:o})", thing.mode);
        if (name == m_paths.receiptFile)
            line(shownName + " = " + receiptText());
        else
            line(thing.isFile ? shownName + " =" + shown(name, thing.text)
                              : shownName + thing.text);
    }
}

/// What a file holds: behind its name where that is one line, otherwise as a block, in which "␄"
/// says that the last line has no end.
std::string Stage::shown(const std::string& name, const std::string& bytes) {
    if (const auto was = m_put.find(name); was != m_put.end() && was->second == bytes)
        return " as it was put";
    const std::string text = marked(bytes);
    if (!text.contains('\n'))
        return " " + text;
    if (!m_told.insert(text).second)
        return " as above";
    std::string result;
    std::istringstream lines(text);
    for (std::string each; std::getline(lines, each);)
        result += "\n    | " + each;
    return result + (text.ends_with('\n') ? "" : "␄");
}

/// What a copy is of, as it was before the verb.
void Stage::checkCopy(const std::string& copy, const Tree& before) const {
    const auto original = before.find(copy.substr(0, copy.find(".wendlow-backup-")));
    ASSERT_NE(original, before.end()) << copy;
    EXPECT_EQ(get(copy), original->second.text) << copy;
    EXPECT_EQ(modeOf(copy), original->second.mode) << copy;
}

std::string Stage::receiptText() const {
    const ConnectorReceipt receipt = ReceiptStore{m_paths.receiptFile}.read();
    std::vector<std::string> words;
    for (const Created created : receipt.created)
        words.emplace_back(text(created));
    for (const Adopted adopted : receipt.adopted)
        words.push_back("adopted " + std::string(text(adopted)));
    for (const std::string& slot : receipt.trustSlots)
        words.push_back("trusted " + marked(slot));
    if (receipt.appVersion)
        words.push_back("version " + *receipt.appVersion);
    return fmt::format("{}", fmt::join(words, ", "));
}

/// All that is in the home, but for the application, copies, and the folders around a receipt.
Stage::Tree Stage::tree() const {
    Tree tree;
    for (auto at = fs::recursive_directory_iterator(m_home.path(),
                                                    fs::directory_options::skip_permission_denied);
         at != fs::recursive_directory_iterator(); ++at) {
        const std::string name = at->path().string();
        if (name.ends_with(".app") || name.ends_with("Library/Application Support/Cursor"))
            at.disable_recursion_pending();
        else if (at->is_symlink())
            tree[name] = {.text = " -> " + marked(fs::read_symlink(at->path()).string())};
        else if (at->is_directory() && !name.contains("/Library"))
            tree[name] = {.text = "/", .mode = modeOf(name)};
        else if (at->is_regular_file() && !name.contains(".wendlow-backup-"))
            tree[name] = {.text = get(name).value_or("?"), .mode = modeOf(name), .isFile = true};
    }
    return tree;
}

std::string Stage::filled(std::string text) const {
    // From the longest again after each: what one leads to may be longer than the next.
    const auto isIn = [&](const auto& mark) { return text.contains(mark.first); };
    for (auto mark = std::ranges::find_if(m_marks, isIn); mark != m_marks.end();
         mark = std::ranges::find_if(m_marks, isIn))
        text = replaced(std::move(text), {*mark});
    return replaced(std::move(text), pictures);
}

std::string Stage::marked(std::string text) const {
    auto marks = m_marks;
    for (auto& [mark, by] : marks)
        by = filled(mark);
    // The longest first: it may hold the others.
    std::ranges::stable_sort(marks, std::greater(),
                             [](const auto& each) { return each.second.size(); });
    static const std::regex unique("[0-9A-F]{8}[0-9A-F-]{28,}\\.tmp$");
    if (text.ends_with(".tmp"))
        text = std::regex_replace(text, unique, "….tmp");
    static const std::regex stamp("(\\.wendlow-backup-)[0-9]{8}-[0-9]{6}");
    if (text.contains(".wendlow-backup-"))
        text = std::regex_replace(text, stamp, "$1…");
    auto signs = pictures;
    std::erase_if(signs, [](const auto& each) { return each.second == "\n"; });
    return replaced(replaced(std::move(text), swapped(marks)), swapped(signs));
}

Stage::~Stage() {
    if (m_user) {
        EXPECT_EQ(::seteuid(*m_user), 0);
        EXPECT_EQ(::setegid(m_group), 0);
    }
}

/// From here on everything is somebody else's, and so is this process, so that modes count even
/// where the tests run as root.
void Stage::asNobody() {
    constexpr uid_t nobody = 65534;
    if (::geteuid() != 0)
        return;
    ASSERT_EQ(::chown(m_home.path().c_str(), nobody, nobody), 0);
    for (const auto& entry : fs::recursive_directory_iterator(m_home.path()))
        EXPECT_EQ(::lchown(entry.path().c_str(), nobody, nobody), 0);
    m_user = ::geteuid();
    m_group = ::getegid();
    EXPECT_EQ(::setegid(nobody), 0);
    EXPECT_EQ(::seteuid(nobody), 0);
}

} // namespace wendlow::testing
