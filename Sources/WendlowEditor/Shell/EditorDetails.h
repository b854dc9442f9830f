#pragma once

#include "Search/SearchPage.h"
#include "Store/Lifetime.h"
#include "Store/PageSource.h"

#include <QCoroTask>
#include <QObject>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// Why and body of memories, fetched for those that are asked for. UI thread; may go while answers
/// are under way. The source must outlive it.
class EditorDetails final : public QObject {
    Q_OBJECT

public:
    explicit EditorDetails(PageSource& pages) : m_pages(pages) {}
    ~EditorDetails() override { m_life.end(); }

    const SearchPage::Details& known() const { return m_known; }
    /// Fetches those that are not known and not under way, in this order, also those that came to
    /// nothing before. They become known together.
    void request(const std::vector<std::string>& ids);
    /// Nothing is known any more, and what is under way comes to nothing.
    void clear();

Q_SIGNALS:
    void changed();

private:
    QCoro::Task<> fetch(std::vector<std::string> ids);

    PageSource& m_pages;
    SearchPage::Details m_known;
    std::set<std::string> m_underWay;
    std::uint64_t m_epoch = 0;
    Lifetime m_life;
};

} // namespace wendlow
