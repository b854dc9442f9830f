#include "LocalModelsUndo.h"

#include "ClientInstance.h"
#include "HomeFolder.h"
#include "LocalModel.h"
#include "SafeRemoval.h"
#include "Say.h"
#include "SetupLog.h"

#include <QCoroFuture>
#include <QCoroNetworkReply>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QProcess>
#include <QUrl>
#include <QtConcurrentRun>

#include <algorithm>
#include <chrono>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>

#include <fmt/format.h>

namespace wendlow::LocalModelsUndo {

namespace {

template<class... Cases> struct Overloaded : Cases... {
    using Cases::operator()...;
};
template<class... Cases> Overloaded(Cases...) -> Overloaded<Cases...>;

using Log = std::function<void(const std::string&)>;

constexpr std::chrono::seconds patience{10};

QCoro::Task<std::optional<int>> askToDelete(std::string host, std::string name) {
    QNetworkAccessManager network;
    QNetworkRequest request(QUrl(QString::fromStdString(host + "/api/delete")));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    request.setTransferTimeout(static_cast<int>(std::chrono::milliseconds(patience).count()));
    const QJsonObject body{{QStringLiteral("name"), QString::fromStdString(name)}};
    const std::unique_ptr<QNetworkReply> reply(network.sendCustomRequest(
        request, "DELETE", QJsonDocument(body).toJson(QJsonDocument::Compact)));
    co_await reply.get();
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    co_return status.isValid() ? std::optional(status.toInt()) : std::nullopt;
}

void remove(const std::string& path, const Surroundings& around) {
    const auto removed = SafeRemoval::remove(path, {around.home, around.support});
    around.log(removed ? fmt::format("cancel-install: removed {}", path)
                       : fmt::format("cancel-install: {} not removed ({})", path, removed.error()));
}

void bootout(const BootoutAgent& agent, const Surroundings& around) {
    const int status = around.bootout(agent.label);
    const bool removed =
        SafeRemoval::remove(agent.plist, {around.home, around.support}).has_value();
    around.log(fmt::format("cancel-install: bootout {} → {}, plist {}", agent.label, status,
                           removed ? "removed" : "not removed"));
}

QCoro::Task<> deleteModel(std::string name, Surroundings around) {
    const auto status = co_await askToDelete(around.modelHost, name);
    around.log(status ? fmt::format("cancel-install: delete model {} → {}", name, *status)
                      : fmt::format("cancel-install: delete model {}: no host answered", name));
}

/// All but the model, which is asked for over the network. Off the UI thread.
void carryOut(const Step& step, const Surroundings& around) {
    std::visit(Overloaded{[](const DeleteModel&) {},
                          [&](const BootoutAgent& agent) { bootout(agent, around); },
                          [&](const auto& removal) { remove(removal.path, around); }},
               step);
}

std::string fileName(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

/// Of the person's own services.
int stopUnit(const std::string& label) {
    QProcess program;
    program.setStandardInputFile(QProcess::nullDevice());
    program.setStandardOutputFile(QProcess::nullDevice());
    program.setStandardErrorFile(QProcess::nullDevice());
    program.start(QStringLiteral("systemctl"), {QStringLiteral("--user"), QStringLiteral("stop"),
                                                QString::fromStdString(label)});
    constexpr int never = -1;
    if (!program.waitForFinished(static_cast<int>(std::chrono::milliseconds(patience).count()))) {
        program.kill();
        program.waitForFinished();
        return never;
    }
    return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : never;
}

} // namespace

bool weInstalled(std::string_view model, const Receipts& receipts) {
    return receipts.pulledModel == model &&
           (!receipts.ollama ||
            std::ranges::find(receipts.ollama->models, model) == receipts.ollama->models.end());
}

Steps plan(const Receipts& receipts, const std::vector<std::string>& blobsAfterStart) {
    Steps steps;
    if (receipts.pulledModel && weInstalled(*receipts.pulledModel, receipts))
        steps.emplace_back(DeleteModel{*receipts.pulledModel});
    if (receipts.agentPlist)
        steps.emplace_back(
            BootoutAgent{*receipts.agentPlist, std::string(ClientInstance::ollamaAgentLabel)});
    if (receipts.ollama)
        for (const std::string& blob : blobsAfterStart)
            steps.emplace_back(RemoveFile{blob});
    for (const auto& folder : {receipts.runtimeDir, receipts.asrCacheDir, receipts.senkoDir})
        if (folder)
            steps.emplace_back(RemoveDirectory{*folder});
    if (receipts.ollama && !receipts.ollama->folderExisted)
        steps.emplace_back(RemoveModelFolder{receipts.ollama->folder});
    return steps;
}

Steps planNow(const Receipts& receipts) {
    return plan(receipts, partialBlobs(receipts));
}

Steps permitted(Steps steps, const std::filesystem::path& home,
                const std::filesystem::path& support) {
    const SafeRemoval::Places places{home, support};
    std::erase_if(steps, [&places](const Step& step) {
        return std::visit(
            Overloaded{[](const DeleteModel&) { return false; },
                       [](const BootoutAgent&) { return false; }, // the agent itself is ours
                       [&](const auto& removal) {
                           return !SafeRemoval::refusal(removal.path, places).empty();
                       }},
            step);
    });
    return steps;
}

std::vector<std::string> partialBlobs(const Receipts& receipts) {
    if (!receipts.ollama || !receipts.pullBeganAt)
        return {};
    const std::filesystem::path blobs = std::filesystem::path(receipts.ollama->folder) / "blobs";
    std::vector<std::string> found;
    std::error_code failed;
    for (std::filesystem::directory_iterator each(blobs, failed), end; !failed && each != end;
         each.increment(failed)) {
        struct stat file{};
        if (::lstat(each->path().c_str(), &file) != 0)
            continue;
        constexpr double nano = 1e-9;
        const double modified = static_cast<double>(file.st_mtim.tv_sec) +
                                static_cast<double>(file.st_mtim.tv_nsec) * nano;
        if (isPartialBlobAfterStart(each->path().filename().string(), modified,
                                    *receipts.pullBeganAt))
            found.push_back(each->path().string());
    }
    // As a folder lists them is no order for a person.
    std::ranges::sort(found);
    return found;
}

bool isPartialBlobAfterStart(std::string_view name, double modified, double since) {
    return name.starts_with("sha256-") && name.find("-partial") != std::string_view::npos &&
           modified >= since;
}

std::vector<std::string> describe(const Steps& steps) {
    std::vector<std::string> lines;
    for (const Step& step : steps)
        lines.push_back(std::visit(
            Overloaded{[](const DeleteModel& model) {
                           return say("will ask Ollama to remove the naming model Wendlow "
                                      "downloaded ({})",
                                      model.name);
                       },
                       [](const BootoutAgent& agent) {
                           return say("the model host Wendlow started ({})", agent.label);
                       },
                       [](const RemoveDirectory& folder) { return folder.path; },
                       [](const RemoveFile& file) {
                           return say("a partly downloaded model file ({})", fileName(file.path));
                       },
                       [](const RemoveModelFolder& folder) {
                           return say("the model folder Wendlow created ({})", folder.path);
                       }},
            step));
    return lines;
}

std::vector<std::string> keeps(const Receipts& receipts) {
    if (!receipts.ollama)
        return {};
    const auto& models = receipts.ollama->models;
    if (models.size() == 1)
        return {say("your existing Ollama model stays ({})", models.front())};
    if (!models.empty())
        return {say.plural(std::ssize(models), "your {} existing Ollama model stays",
                           "your {} existing Ollama models stay", models.size())};
    if (receipts.ollama->folderExisted)
        return {say("your Ollama folder stays; it was here before Wendlow")};
    return {};
}

std::vector<std::string> caveats(const Receipts& receipts) {
    if (!receipts.ollama && receipts.pulledModel && !receipts.agentPlist)
        return {say("partly downloaded model files in your Ollama folder may remain")};
    return {};
}

bool leavesNothingBehind(const std::optional<Receipts>& receipts) {
    return receipts && receipts->ollama;
}

Surroundings Surroundings::current() {
    return {.home = homeFolder(),
            .support = ClientInstance::supportRoot(ClientInstance::defaultSupport()),
            .modelHost = std::string(LocalModel::endpoint),
            .bootout = &stopUnit,
            .log = [](const std::string& line) { SetupLog::line(line); }};
}

QCoro::Task<> perform(Steps steps, Surroundings surroundings) {
    for (const Step& step : steps) {
        if (const auto* const model = std::get_if<DeleteModel>(&step)) {
            auto asking = deleteModel(model->name, surroundings);
            co_await asking;
            continue;
        }
        // The step is copied: who awaits this may give up before the disk does.
        const auto work = QtConcurrent::run([step, surroundings] { carryOut(step, surroundings); });
        co_await work;
    }
}

} // namespace wendlow::LocalModelsUndo
