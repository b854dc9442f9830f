#include "Classifier/ClassifierStatus.h"

#include "LocalModel.h"
#include "Say.h"

#include <QString>

#include <array>

namespace wendlow {

namespace {

constexpr std::array tones{"error", "running", "loading"};
constexpr const char* modelSize = sayLater("2.5 GB");
static_assert(modelSize == LocalModel::approxDownload);

} // namespace

ClassifierStatus ClassifierStatus::current() {
    return {.model = say("Gemma 3 · 4B, text only"),
            .runtime = "Ollama",
            .sizeOnDisk = say(modelSize),
            .health = Running{}};
}

std::string ClassifierStatus::healthWord() const {
    if (const auto* const error = std::get_if<Error>(&health))
        return error->words;
    return std::holds_alternative<Running>(health) ? say("Running") : say("Checking");
}

QVariantMap ClassifierStatus::map() const {
    return {{QStringLiteral("model"), QString::fromStdString(model)},
            {QStringLiteral("runtime"), QString::fromStdString(runtime)},
            {QStringLiteral("sizeOnDisk"), QString::fromStdString(sizeOnDisk)},
            {QStringLiteral("word"), QString::fromStdString(healthWord())},
            {QStringLiteral("tone"), QString::fromLatin1(tones[health.index()])}};
}

} // namespace wendlow
