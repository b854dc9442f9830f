#include "LocalModelsJson.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <cmath>
#include <limits>
#include <utility>

namespace wendlow::LocalModelsJson {

namespace {

using Progress = LocalModelsProgress;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8);
}

QString key(const char* name) {
    return QString::fromLatin1(name);
}

template<class Value> void put(QJsonObject& object, const char* name, const Value& value) {
    if constexpr (std::is_same_v<Value, std::string>)
        object.insert(key(name), text(value));
    else if constexpr (std::is_same_v<Value, std::int64_t>)
        object.insert(key(name), static_cast<qint64>(value));
    else
        object.insert(key(name), value);
}

template<class Value>
void put(QJsonObject& object, const char* name, const std::optional<Value>& value) {
    if (value)
        put(object, name, *value);
}

/// Reads members one after the other, and remembers whether one was not as it has to be.
class Members {
public:
    explicit Members(const QJsonValue& value)
        : m_object(value.toObject()), m_good(value.isObject()) {}

    bool good() const { return m_good; }

    void take(const char* name, std::string& into) {
        const QJsonValue value = m_object.value(key(name));
        m_good = m_good && value.isString();
        into = value.toString().toStdString();
    }
    void take(const char* name, bool& into) {
        const QJsonValue value = m_object.value(key(name));
        m_good = m_good && value.isBool();
        into = value.toBool();
    }
    void take(const char* name, double& into) {
        const QJsonValue value = m_object.value(key(name));
        m_good = m_good && value.isDouble();
        into = value.toDouble();
    }
    void take(const char* name, std::int64_t& into) {
        const QJsonValue value = m_object.value(key(name));
        // Beyond what a double tells apart, only a number that was written whole is one.
        constexpr qint64 none = std::numeric_limits<qint64>::min();
        const qint64 whole = value.toInteger(none);
        m_good = m_good && value.isDouble() && whole != none;
        into = whole;
    }
    void take(const char* name, std::int32_t& into) {
        std::int64_t wide = 0;
        take(name, wide);
        m_good = m_good && wide >= std::numeric_limits<std::int32_t>::min() &&
                 wide <= std::numeric_limits<std::int32_t>::max();
        into = m_good ? static_cast<std::int32_t>(wide) : 0;
    }
    template<class Value> void take(const char* name, std::optional<Value>& into) {
        const QJsonValue value = m_object.value(key(name));
        if (value.isUndefined() || value.isNull())
            return;
        Value found{};
        take(name, found);
        into = std::move(found);
    }
    template<class Value> void take(const char* name, std::vector<Value>& into) {
        const QJsonValue value = m_object.value(key(name));
        m_good = m_good && value.isArray();
        for (const QJsonValue each : value.toArray())
            m_good = read(each, into.emplace_back()) && m_good;
    }
    template<class Value>
        requires std::is_class_v<Value>
    void take(const char* name, Value& into) {
        m_good = read(m_object.value(key(name)), into) && m_good;
    }

private:
    static bool read(const QJsonValue& value, std::string& into) {
        into = value.toString().toStdString();
        return value.isString();
    }
    static bool read(const QJsonValue& value, Progress::Row& into);
    static bool read(const QJsonValue& value, Progress::Sample& into);
    static bool read(const QJsonValue& value, Progress::OllamaInventory& into);
    static bool read(const QJsonValue& value, Progress::Receipts& into);

    const QJsonObject m_object;
    bool m_good;
};

bool Members::read(const QJsonValue& value, Progress::Row& into) {
    Members row(value);
    row.take("id", into.id);
    row.take("label", into.label);
    row.take("state", into.state);
    row.take("download", into.download);
    row.take("bytes", into.bytes);
    row.take("totalBytes", into.totalBytes);
    row.take("expected", into.expected);
    row.take("present", into.present);
    return row.good();
}

bool Members::read(const QJsonValue& value, Progress::Sample& into) {
    Members sample(value);
    sample.take("at", into.at);
    sample.take("bytes", into.bytes);
    return sample.good();
}

bool Members::read(const QJsonValue& value, Progress::OllamaInventory& into) {
    Members inventory(value);
    inventory.take("folder", into.folder);
    inventory.take("folderExisted", into.folderExisted);
    inventory.take("models", into.models);
    inventory.take("takenAt", into.takenAt);
    return inventory.good();
}

bool Members::read(const QJsonValue& value, Progress::Receipts& into) {
    Members receipts(value);
    receipts.take("runtimeDir", into.runtimeDir);
    receipts.take("agentPlist", into.agentPlist);
    receipts.take("pulledModel", into.pulledModel);
    receipts.take("asrCacheDir", into.asrCacheDir);
    receipts.take("senkoDir", into.senkoDir);
    receipts.take("ollama", into.ollama);
    receipts.take("pullBeganAt", into.pullBeganAt);
    receipts.take("oldModelWasOurs", into.oldModelWasOurs);
    return receipts.good();
}

QJsonObject object(const Progress::Row& row) {
    QJsonObject made;
    put(made, "id", row.id);
    put(made, "label", row.label);
    put(made, "state", row.state);
    put(made, "download", row.download);
    put(made, "bytes", row.bytes);
    put(made, "totalBytes", row.totalBytes);
    put(made, "expected", row.expected);
    put(made, "present", row.present);
    return made;
}

QJsonObject object(const Progress::Sample& sample) {
    QJsonObject made;
    put(made, "at", sample.at);
    put(made, "bytes", sample.bytes);
    return made;
}

QJsonObject object(const Progress::OllamaInventory& inventory) {
    QJsonObject made;
    put(made, "folder", inventory.folder);
    put(made, "folderExisted", inventory.folderExisted);
    QJsonArray models;
    for (const std::string& model : inventory.models)
        models.append(text(model));
    put(made, "models", models);
    put(made, "takenAt", inventory.takenAt);
    return made;
}

QJsonObject object(const Progress::Receipts& receipts) {
    QJsonObject made;
    put(made, "runtimeDir", receipts.runtimeDir);
    put(made, "agentPlist", receipts.agentPlist);
    put(made, "pulledModel", receipts.pulledModel);
    put(made, "asrCacheDir", receipts.asrCacheDir);
    put(made, "senkoDir", receipts.senkoDir);
    if (receipts.ollama)
        put(made, "ollama", object(*receipts.ollama));
    put(made, "pullBeganAt", receipts.pullBeganAt);
    put(made, "oldModelWasOurs", receipts.oldModelWasOurs);
    return made;
}

template<class Value> QJsonArray array(const std::vector<Value>& values) {
    QJsonArray made;
    for (const Value& value : values)
        made.append(object(value));
    return made;
}

} // namespace

std::string encode(const LocalModelsProgress& progress) {
    QJsonObject made;
    put(made, "pid", progress.pid);
    put(made, "writtenAt", progress.writtenAt);
    put(made, "running", progress.running);
    put(made, "rows", array(progress.rows));
    put(made, "samples", array(progress.samples));
    put(made, "installed", object(progress.installed));
    put(made, "migrating", progress.migrating);
    return QJsonDocument(made).toJson(QJsonDocument::Compact).toStdString();
}

std::optional<LocalModelsProgress> decode(std::string_view json) {
    const QByteArray bytes =
        QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return std::nullopt;
    LocalModelsProgress progress;
    Members members(document.object());
    members.take("pid", progress.pid);
    members.take("writtenAt", progress.writtenAt);
    members.take("running", progress.running);
    members.take("rows", progress.rows);
    members.take("samples", progress.samples);
    members.take("installed", progress.installed);
    members.take("migrating", progress.migrating);
    return members.good() ? std::optional(std::move(progress)) : std::nullopt;
}

} // namespace wendlow::LocalModelsJson
