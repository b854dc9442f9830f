#pragma once

#include "Floor/MemoryDetails.h"
#include "Store/Lifetime.h"
#include "Store/PageSource.h"

#include <QCoroTask>
#include <QObject>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// Why and body of memories, fetched for those that are asked for. UI thread; may go while answers
/// are under way. The source must outlive it.
class EditorDetails final : public QObject {
    Q_OBJECT

public:
    explicit EditorDetails(PageSource& source) : m_source(source) {}
    ~EditorDetails() override { m_life.end(); }

    const MemoryDetails& known() const { return m_known; }
    /// Fetches those that are not known and not under way for this asker, in this order, also those
    /// that came to nothing before. They become known together.
    void request(const std::vector<std::string>& ids, EditorAsker asker);
    /// What is under way for this asker comes to nothing; what is known stays.
    void abandon(EditorAsker asker);
    /// Nothing is known any more, and what is under way comes to nothing.
    void clear();
    /// The same, for good.
    void retire();

Q_SIGNALS:
    void changed();

private:
    struct UnderWay {
        std::set<std::string> ids;
        std::uint64_t epoch = 0; ///< what began in another one comes to nothing
    };

    QCoro::Task<> fetch(std::vector<std::string> ids, EditorAsker asker);

    PageSource& m_source;
    MemoryDetails m_known;
    std::map<EditorAsker, UnderWay> m_underWay;
    bool m_retired = false;
    Lifetime m_life;
};

} // namespace wendlow
