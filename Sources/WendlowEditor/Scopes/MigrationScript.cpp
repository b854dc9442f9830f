#include "Scopes/MigrationScript.h"

#include "ClientInstance.h"
#include "Floor/Characters.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <vector>

#include <fmt/format.h>

namespace wendlow::MigrationScript {

namespace {

/// What every script does, up to and from the one name in it that depends on the build.
constexpr std::string_view body = R"PYTHON(def mcp_call(name, args):
    msgs = [
        {"jsonrpc": "2.0", "id": 1, "method": "initialize",
         "params": {"protocolVersion": "2024-11-05", "capabilities": {},
                    "clientInfo": {"name": "migrate-scope", "version": "1"}}},
        {"jsonrpc": "2.0", "method": "notifications/initialized"},
        {"jsonrpc": "2.0", "id": 2, "method": "tools/call",
         "params": {"name": name, "arguments": args}},
    ]
    payload = "\n".join(json.dumps(m) for m in msgs) + "\n"
    p = subprocess.run([MCP], input=payload.encode(), stdout=subprocess.PIPE,
                       stderr=subprocess.DEVNULL, timeout=30)
    for line in p.stdout.decode().splitlines():
        try: o = json.loads(line)
        except: continue
        if o.get("id") == 2:
            return o.get("result", {})
    return {}

# read-only discovery straight from the store (reads are safe while the daemon lives)
con = sqlite3.connect(f"file:{DB}?mode=ro", uri=True)
targets = []
for old, new in MOVES:
    rows = con.execute("SELECT id FROM note WHERE path = ?", (old,)).fetchall()
    targets += [(f"m:{r[0]}", old, new) for r in rows]

print(f"{len(targets)} memories to move across {len(MOVES)} scopes")
for old, new in MOVES:
    n = sum(1 for _, o, _ in targets if o == old)
    print(f"  {old} -> {new}   ({n} memories)")
for folder, new in FOLDERS:
    print(f"  folder {folder} -> {new}")

if "--apply" not in sys.argv:
    print("DRY RUN - nothing written. Re-run with --apply.")
    sys.exit(0)

# THE VERIFIED BACKUP, before the first write. A scope move touches every memory in a subtree; the
# house law is that it never runs without a copy that has been checked for readability.
stamp = datetime.datetime.now().strftime("%Y%m%d-%H%M%S")
backup = os.path.expanduser(f"~/Library/Application Support/)PYTHON";
constexpr std::string_view bodyBehindTheName = R"PYTHON(/data.db.scope-migration-{stamp}")
# `VACUUM INTO`, NEVER A FILE COPY (m:852 slice E, ship condition (b)). The store is WAL since that
# slice, so a byte copy of `data.db` alone is a TORN backup: every page committed since the last
# checkpoint lives in `data.db-wal` and would simply be missing. Worse, the verify below would often
# still pass on it — `note` rows may all sit in the main file while everything else is in the WAL — so a
# byte-copied backup gives false confidence exactly when it is least deserved. `VACUUM INTO` writes ONE
# consistent file from the reader's own snapshot, WAL included, and needs no daemon stop.
# BORN 0600 (m:1776): a whole copy of the store, made empty and private first; VACUUM INTO fills an empty file.
os.close(os.open(backup, os.O_WRONLY | os.O_CREAT | os.O_EXCL, 0o600))
con.execute("VACUUM INTO ?", (backup,))
check = sqlite3.connect(f"file:{backup}?mode=ro", uri=True)
n = check.execute("SELECT count(*) FROM note").fetchone()[0]
live = con.execute("SELECT count(*) FROM note").fetchone()[0]
if n != live:
    print(f"BACKUP VERIFY FAILED: backup has {n} notes, live has {live}. Nothing written.")
    sys.exit(1)
print(f"backup verified: {backup} ({n} notes)")

ok = fail = 0
for mid, old, new in targets:
    # THE ARG IS `scope`, NOT `path`. The DB column and the XPC wire label are both `path`, but the
    # agent-facing tool parameter is `scope` (ToolCatalog memory_edit; MCPBridge reads args["scope"]
    # and rejects a call carrying none of text/why/type/scope/filters/title). Sending `path` made
    # every one of these calls error AFTER the backup had been taken — a wall of FAILED and nothing
    # moved. Pinned by EditorScopesFaceTests.scriptUsesTheCatalogsArgumentNames.
    r = mcp_call("memory_edit", {"id": mid, "scope": new})
    if r and not r.get("isError"): ok += 1
    else: fail += 1; print(f"FAILED: {mid}")
for folder, new in FOLDERS:
    # `scope`, not `path`, for the same reason as above (ToolCatalog scope_map_folder).
    r = mcp_call("scope_map_folder", {"folder": folder, "scope": new})
    if r and not r.get("isError"): ok += 1
    else: fail += 1; print(f"FAILED: folder {folder}")
print(f"applied {ok}/{len(targets) + len(FOLDERS)}; failures: {fail}")
if fail:
    print(f"restore with: cp {backup} {DB}   (stop the daemon first)")
)PYTHON";

class Lines {
public:
    template<class... Parts> void add(const Parts&... parts) {
        (m_text.append(parts), ...);
        m_text += '\n';
    }
    std::string take() { return std::move(m_text); }

private:
    std::string m_text;
};

void addPurpose(Lines& lines, const EditorScopeMigration& migration, std::string_view date) {
    lines.add("#!/usr/bin/env python3");
    if (migration.isRetire())
        lines.add("# One-shot migration: RETIRE the scope ", migration.moved(),
                  ", moving its contents to ", migration.to(), ".");
    else
        lines.add("# One-shot migration: RENAME the scope ", migration.moved(), " -> ",
                  migration.to(), ", subtree included.");
    lines.add("# Generated by the Wendlow Editor's Scopes face on ", date,
              ". The Editor NEVER performs");
    lines.add("# a scope rename or retire itself — it writes this, and you run it.");
}

void addPreview(Lines& lines, const EditorScopeMigration& migration) {
    lines.add("# Preview at generation time:");
    lines.add(fmt::format("#   {} memories · {} scopes · {} folder maps", migration.memoryCount(),
                          migration.affected.size(), migration.foldersTotal()));
    for (std::size_t at = 0; at < migration.affected.size(); ++at) {
        const EditorScopeRow& row = migration.affected[at];
        const std::string folders =
            row.folders.empty() ? "" : fmt::format(", folders: {}", fmt::join(row.folders, ", "));
        lines.add("#   ", row.path, " -> ", migration.destinations[at],
                  fmt::format("   ({} memories", memories(row)), folders, ")");
    }
}

void addPair(Lines& lines, std::string_view from, std::string_view to) {
    lines.add("    (", py(from), ", ", py(to), "),");
}

/// Of each move its place among the rows, the longest path first.
std::vector<std::size_t> longestFirst(const std::vector<EditorScopeRow>& rows) {
    std::vector<std::int64_t> lengths;
    lengths.reserve(rows.size());
    for (const EditorScopeRow& row : rows)
        lengths.push_back(Characters::count(row.path));
    std::vector<std::size_t> places(rows.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::ranges::stable_sort(places, std::greater(), [&](std::size_t at) { return lengths[at]; });
    return places;
}

void addMoves(Lines& lines, const EditorScopeMigration& migration) {
    lines.add("# path -> path, exactly the moves the Editor previewed. Longest paths FIRST so a "
              "child");
    lines.add("# is matched before its parent's prefix could claim it.");
    lines.add("MOVES = [");
    for (const std::size_t at : longestFirst(migration.affected))
        addPair(lines, migration.affected[at].path, migration.destinations[at]);
    lines.add("]");
}

void addFolders(Lines& lines, const EditorScopeMigration& migration) {
    lines.add("# folder -> new scope, for every mapping the move re-points.");
    lines.add("FOLDERS = [");
    for (std::size_t at = 0; at < migration.affected.size(); ++at)
        for (const std::string& folder : migration.affected[at].folders)
            addPair(lines, folder, migration.destinations[at]);
    lines.add("]");
}

} // namespace

std::string text(const EditorScopeMigration& migration, std::string_view date,
                 std::string_view mcp) {
    const std::string name = migration.scriptName(date);
    Lines lines;
    addPurpose(lines, migration, date);
    lines.add("#");
    addPreview(lines, migration);
    lines.add("#");
    lines.add("# Usage: ", name, "            (dry run - prints the diff)");
    lines.add("#        ", name, "    (performs the move, after a verified backup)");
    lines.add("import json, subprocess, sys, sqlite3, os, datetime");
    lines.add();
    lines.add("MCP = ", py(mcp));
    lines.add("DB = os.path.expanduser(\"~/Library/Application Support/",
              ClientInstance::supportDirName, "/", ClientInstance::databaseName, "\")");
    lines.add();
    addMoves(lines, migration);
    lines.add();
    addFolders(lines, migration);
    lines.add();
    return lines.take()
        .append(body)
        .append(ClientInstance::supportDirName)
        .append(bodyBehindTheName);
}

std::string py(std::string_view text) {
    std::string quoted = "\"";
    for (const char byte : text) {
        if (byte == '\\' || byte == '"')
            quoted += '\\';
        quoted += byte;
    }
    return quoted += '"';
}

std::int64_t memories(const EditorScopeRow& row) {
    std::int64_t sum = 0;
    for (const EditorCount& kind : row.kinds)
        sum += kind.count;
    return sum;
}

} // namespace wendlow::MigrationScript
