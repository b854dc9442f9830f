#include "Doctor.h"

#include "SafeText.h"
#include "Say.h"
#include "ToolProgram.h"

#include "ClientVersion.h"
#include "ConfigFile/Backup.h"
#include "ConfigFile/Disk.h"
#include "Connectors.h"
#include "Cursor/CursorVersion.h"
#include "InfoPlist.h"
#include "Overloaded.h"
#include "OwnedNames.h"
#include "ReadRequest.h"
#include "ReceiptStore.h"
#include "ToolFiles.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <utility>

#include <fmt/format.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace wendlow::connect::Doctor {

namespace {

using Path = std::filesystem::path;
using Object = JSONLiteral::Object;
using Array = JSONLiteral::Array;

// The report is made in English, as a program reads it. What of it is words is said when it is made
// into lines; all else is data.

constexpr const char* aFile = sayLater("a file");
constexpr const char* aFolder = sayLater("a folder");
constexpr const char* none = sayLater("none");
constexpr const char* notOnThePath = sayLater("not on the PATH");
constexpr const char* notRunnable = sayLater("not to be run by this user");
constexpr const char* notThere = sayLater("not there");
constexpr const char* somethingElse = sayLater("something else");
constexpr const char* there = sayLater("there");
constexpr const char* unknown = sayLater("unknown");

constexpr std::array values{aFile,    aFolder,       none,  notOnThePath, notRunnable,
                            notThere, somethingElse, there, unknown};
constexpr std::array labels{
    sayLater("build"),         sayLater("bundle"),       sayLater("bundle version"),
    sayLater("copies"),        sayLater("desktop"),      sayLater("files"),
    sayLater("gateway"),       sayLater("health"),       sayLater("is"),
    sayLater("is answering"),  sayLater("is stale"),     sayLater("is this users"),
    sayLater("is writable"),   sayLater("kept"),         sayLater("kernel"),
    sayLater("language"),      sayLater("link to"),      sayLater("mode"),
    sayLater("name"),          sayLater("observations"), sayLater("path"),
    sayLater("permissions"),   sayLater("program"),      sayLater("programs"),
    sayLater("receipt"),       sayLater("session"),      sayLater("state"),
    sayLater("system"),        sayLater("tells of"),     sayLater("tools"),
    sayLater("tools version"), sayLater("version"),
};

JSONLiteral text(std::string_view bytes) {
    return SafeText::literal(bytes);
}

JSONLiteral texts(const auto& all) {
    Array elements;
    for (const auto& one : all)
        elements.push_back(text(one));
    return JSONLiteral::array(std::move(elements));
}

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// The value of a line `key=value` or `key="value"` of a small file of the system's.
std::string setting(const Path& file, std::string_view key) {
    const auto bytes = Disk::read(file);
    const std::string all = "\n" + (bytes && *bytes ? **bytes : std::string());
    const auto start = all.find(fmt::format("\n{}=", key));
    if (start == std::string::npos)
        return unknown;
    std::string value = all.substr(start + key.size() + 2);
    value.resize(std::min(value.size(), value.find('\n')));
    std::erase(value, '"');
    return value;
}

/// What stands at a path, and who may do what with it.
Object place(const Path& path) {
    Object members{{"path", text(path.string())}};
    const auto kind = Disk::kind(path);
    if (kind == Disk::Kind::nothing) {
        members.push_back({"is", text(notThere)});
        return members;
    }
    members.push_back({"is", text(kind == Disk::Kind::file     ? aFile
                                  : kind == Disk::Kind::folder ? aFolder
                                                               : somethingElse)});
    if (const auto link = Disk::readLink(path))
        members.push_back({"linkTo", text(link->string())});
    if (const auto attributes = Disk::attributes(path)) {
        members.push_back({"mode", text(fmt::format("{:04o}", attributes->mode))});
        members.push_back({"isThisUsers", JSONLiteral::boolean(attributes->owner == ::geteuid())});
    }
    members.push_back({"isWritable", JSONLiteral::boolean(Disk::isWritable(path))});
    return members;
}

JSONLiteral file(const Path& path) {
    Object members = place(path);
    std::vector<std::string> copies;
    for (const Path& copy : Backup::all(path))
        copies.push_back(copy.filename().string());
    if (!copies.empty())
        members.push_back({"copies", texts(copies)});
    return JSONLiteral::object(std::move(members));
}

JSONLiteral receipt(const Path& path) {
    Object members = place(path);
    if (!Disk::exists(path))
        return JSONLiteral::object(std::move(members));
    const ConnectorReceipt read = ReceiptStore{path}.read();
    std::vector<std::string_view> created;
    created.reserve(read.created.size() + read.adopted.size());
    for (const Created one : read.created)
        created.push_back(wendlow::text(one));
    for (const Adopted one : read.adopted)
        created.push_back(wendlow::text(one));
    members.push_back({"tellsOf", texts(created)});
    if (read.appVersion)
        members.push_back({"toolsVersion", text(*read.appVersion)});
    return JSONLiteral::object(std::move(members));
}

JSONLiteral tool(const SeenTool& seen, const Places& places) {
    const ScanReport& scan = seen.scan;
    const ToolFiles files = ToolFiles::of(scan.identity.id, places);
    Object members{{"name", text(scan.identity.name)},
                   {"state", text(wendlow::text(scan.state))},
                   {"isStale", JSONLiteral::boolean(seen.isStale)}};
    const auto program = ToolProgram::find(files.program, variable("PATH"));
    auto version = program ? program->version : std::nullopt;
    if (files.application && !version)
        version = CursorVersion::read(*files.application);
    members.push_back({"program", text(program ? program->path.string() : notOnThePath)});
    members.push_back({"version", text(version.value_or(unknown))});
    Array observations;
    for (const Observation& said : scan.observations)
        observations.push_back(JSONLiteral::object(
            {{"subject", text(said.subject)}, {"text", text(withoutQuotations(said.text))}}));
    members.push_back({"observations", JSONLiteral::array(std::move(observations))});
    Array looked;
    for (const Path& path : files.files)
        looked.push_back(file(path));
    members.push_back({"files", JSONLiteral::array(std::move(looked))});
    members.push_back({"receipt", receipt(OwnedNames::receipt(places.home, scan.identity.id))});
    return JSONLiteral::object(std::move(members));
}

JSONLiteral installation(const Path& bundle) {
    Array programs;
    for (const char* name : {"wendlow-settings", "wendlow-open", "wendlow-connect", "wendlow-ask",
                             "wendlow-hook", "wendlow-mcp"}) {
        const Path path = OwnedNames::program(bundle, name);
        programs.push_back(JSONLiteral::object({{"name", text(name)},
                                                {"is", text(!Disk::exists(path)       ? notThere
                                                            : !Disk::isRunnable(path) ? notRunnable
                                                                                      : there)}}));
    }
    const auto version =
        InfoPlist::string(bundle / "Contents/Info.plist", "CFBundleShortVersionString");
    return JSONLiteral::object({{"version", text(ClientVersion::current())},
                                {"bundle", text(bundle.string())},
                                {"bundleVersion", text(version.value_or(unknown))},
                                {"programs", JSONLiteral::array(std::move(programs))}});
}

JSONLiteral system() {
    utsname names{};
    ::uname(&names);
    const auto orNone = [](const std::string& value) { return text(value.empty() ? none : value); };
    return JSONLiteral::object(
        {{"name", text(setting("/etc/os-release", "PRETTY_NAME"))},
         {"kernel", text(fmt::format("{} {} {}", static_cast<const char*>(names.sysname),
                                     static_cast<const char*>(names.release),
                                     static_cast<const char*>(names.machine)))},
         {"desktop", orNone(variable("XDG_CURRENT_DESKTOP"))},
         {"session", orNone(variable("XDG_SESSION_TYPE"))},
         {"language", orNone(variable("LC_ALL").empty() ? variable("LANG") : variable("LC_ALL"))}});
}

/// What an answer says in a word.
std::string word(const HookAnswer& answer) {
    if (!answer)
        return answer.error();
    if (const auto* const said = std::get_if<AnswerCase::Text>(&*answer))
        return said->_0;
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&*answer))
        return "failed: " + withoutQuotations(failure->message);
    return std::string(answer->caseName());
}

JSONLiteral gateway(const HookAsk& ask) {
    const auto answers = ask({ReadRequest(ReadCase::Health{}), ReadRequest(ReadCase::DaemonBuild{}),
                              ReadRequest(ReadCase::Grants{})});
    const HookAnswer& health = answers.at(0);
    Object members{{"isAnswering", JSONLiteral::boolean(health.has_value())},
                   {"health", text(word(health))}};
    if (!health)
        return JSONLiteral::object(std::move(members));
    members.push_back({"build", text(word(answers.at(1)))});
    const HookAnswer& grants = answers.at(2);
    const auto* const told = grants ? std::get_if<AnswerCase::Grants>(&*grants) : nullptr;
    if (told == nullptr) {
        members.push_back({"permissions", text(word(grants))});
        return JSONLiteral::object(std::move(members));
    }
    Array permissions;
    for (const GrantRow& row : told->_0.grants)
        permissions.push_back(
            JSONLiteral::object({{"kind", text(row.kind)}, {"state", text(row.state)}}));
    members.push_back({"permissions", JSONLiteral::array(std::move(permissions))});
    return JSONLiteral::object(std::move(members));
}

/// `text` with "~" wherever it names the folder or something in it.
std::string withTilde(std::string text, const std::string& home) {
    if (home.size() < 2)
        return text;
    const auto continues = [](char letter) {
        return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_' ||
               letter == '-' || letter == '.';
    };
    for (std::size_t at = text.find(home); at != std::string::npos; at = text.find(home, at + 1))
        if (at + home.size() == text.size() || !continues(text[at + home.size()]))
            text.replace(at, home.size(), "~");
    return text;
}

JSONLiteral withTildes(const JSONLiteral& literal, const std::vector<std::string>& homes) {
    return std::visit(Overloaded{[&](const Object& members) {
                                     Object result;
                                     for (const auto& [key, value] : members)
                                         result.push_back({key, withTildes(value, homes)});
                                     return JSONLiteral::object(std::move(result));
                                 },
                                 [&](const Array& elements) {
                                     Array result;
                                     for (const JSONLiteral& element : elements)
                                         result.push_back(withTildes(element, homes));
                                     return JSONLiteral::array(std::move(result));
                                 },
                                 [&](const std::string& value) {
                                     std::string result = value;
                                     for (const std::string& home : homes)
                                         result = withTilde(std::move(result), home);
                                     return JSONLiteral::string(std::move(result));
                                 },
                                 [](const auto& plain) { return JSONLiteral{plain}; }},
                      literal.content);
}

std::string spoken(std::string english, std::span<const char* const> words) {
    const auto word =
        std::ranges::find_if(words, [&](const char* known) { return english == known; });
    return word == words.end() ? std::move(english) : say(*word);
}

/// "isThisUsers" as a person reads it: "is this users".
std::string label(std::string_view key) {
    std::string result;
    for (const char letter : key)
        if (std::isupper(static_cast<unsigned char>(letter)) != 0)
            result.append(
                {' ', static_cast<char>(std::tolower(static_cast<unsigned char>(letter)))});
        else
            result += letter;
    return spoken(std::move(result), labels);
}

/// A value of one line; nothing for one that holds others.
std::optional<std::string> plain(const JSONLiteral& literal) {
    if (const auto* const string = std::get_if<std::string>(&literal.content))
        return spoken(SafeText::shown(*string), values);
    if (const bool* const boolean = std::get_if<bool>(&literal.content))
        return *boolean ? say("yes") : say("no");
    if (const auto* const elements = std::get_if<Array>(&literal.content);
        elements != nullptr && elements->empty())
        return say(none);
    return std::nullopt;
}

void write(std::string& lines, const JSONLiteral& literal, const std::string& indent);

void write(std::string& lines, const JSONLiteral::Member& member, const std::string& indent) {
    const auto value = plain(member.value);
    lines +=
        fmt::format("{}{}:{}{}\n", indent, label(member.key), value ? " " : "", value.value_or(""));
    if (!value)
        write(lines, member.value, indent + "  ");
}

/// An element in a list: one of two values is one line, of others the first is the head.
void writeElement(std::string& lines, const JSONLiteral& element, const std::string& indent) {
    const auto* const members = std::get_if<Object>(&element.content);
    if (members == nullptr || members->empty()) {
        lines += fmt::format("{}{}\n", indent, plain(element).value_or(""));
        return;
    }
    const std::string head = plain(members->front().value).value_or("");
    if (members->size() == 2) {
        lines += fmt::format("{}{}: {}\n", indent, head, plain(members->back().value).value_or(""));
        return;
    }
    lines += fmt::format("{}{}\n", indent, head);
    for (const auto& member : std::span(*members).subspan(1))
        write(lines, member, indent + "  ");
}

void write(std::string& lines, const JSONLiteral& literal, const std::string& indent) {
    if (const auto* const members = std::get_if<Object>(&literal.content))
        for (const auto& member : *members)
            write(lines, member, indent);
    if (const auto* const elements = std::get_if<Array>(&literal.content))
        for (const JSONLiteral& element : *elements)
            writeElement(lines, element, indent);
}

} // namespace

std::string withoutQuotations(std::string_view sentence) {
    std::string result(sentence.substr(0, sentence.find(": ")));
    if (result.size() < sentence.size())
        result += ": …";
    for (std::size_t open = result.find('"'); open != std::string::npos;) {
        const std::size_t close = result.find('"', open + 1);
        const std::size_t length = close == std::string::npos ? close : close - open + 1;
        result.replace(open, length, "…");
        open = result.find('"', open);
    }
    return result;
}

JSONLiteral examine(const Places& places, const std::vector<SeenTool>& tools, const HookAsk& ask) {
    Array seen;
    for (const SeenTool& each : tools)
        seen.push_back(tool(each, places));
    const Path support = OwnedNames::support(places.home) / "Wendlow";
    Array kept;
    for (const Path& path : {support, support / "Connectors", places.home / "Library/Logs",
                             places.home / "Library/Logs/wendlow-journey.log",
                             places.home / "Library/Logs/wendlow-hook.log"})
        kept.push_back(JSONLiteral::object(place(path)));
    std::vector<std::string> homes{places.home.string()};
    if (const auto real = Disk::realPath(places.home); real && *real != places.home)
        homes.push_back(real->string());
    return withTildes(JSONLiteral::object({{"wendlow", installation(places.bundle)},
                                           {"system", system()},
                                           {"gateway", gateway(ask)},
                                           {"tools", JSONLiteral::array(std::move(seen))},
                                           {"kept", JSONLiteral::array(std::move(kept))}}),
                      homes);
}

std::string json(const JSONLiteral& found) {
    return found.render("", "  ", {.multiline = true, .newline = "\n"}) + "\n";
}

std::string lines(const JSONLiteral& found) {
    std::string lines;
    write(lines, found, "");
    return lines;
}

} // namespace wendlow::connect::Doctor
