#include "Support/SampleAnswers.h"

#include <random>

#include <boost/describe/enumerators.hpp>
#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

namespace wendlow::benchmarks::SampleAnswers {

namespace {

/// About one word in ten is not plain, as in notes of somebody who writes in two languages.
constexpr std::string_view words[] = {
    "budget", "the",    "of",      "quarter",    "meeting",  "draft", "plan",
    "a",      "review", "release", "and",        "decided",  "with",  "migration",
    "by",     "Friday", "because", "tests",      "failed",   "on",    "main",
    "schema", "moved",  "to",      "server",     "notes",    "from",  "customer",
    "call",   "über",   "naïve",   "\"quoted\"", "line\nend"};

/// Fills any record of the contract, field by field; the seed is fixed.
class Filler {
public:
    explicit Filler(std::size_t listLength) : m_listLength(listLength) {}

    void fill(bool& value) { value = next(2) == 1; }
    void fill(std::int64_t& value) { value = static_cast<std::int64_t>(next(2'000'000'000)); }
    void fill(double& value) { value = 1794000000.0 + static_cast<double>(next(1U << 30U)) / 1024; }
    void fill(std::string& value) {
        value.clear();
        for (std::size_t count = 1 + next(8); count > 0; --count)
            value.append(words[next(std::size(words))]).append(count > 1 ? " " : "");
    }
    void fill(WireData& value) {
        for (int count = 0; count < 40'000; ++count)
            value.bytes += static_cast<char>(next(256));
    }
    void fill(FilterValue& value) {
        switch (next(3)) {
        case 0:
            return fill(value.emplace<std::string>());
        case 1:
            return fill(value.emplace<double>());
        default:
            return fill(value.emplace<bool>());
        }
    }
    template<class T> void fill(std::optional<T>& value) {
        if (next(3) > 0)
            fill(value.emplace());
    }
    template<class T> void fill(std::vector<T>& list) {
        list.resize(std::exchange(m_listLength, 4));
        for (T& item : list)
            fill(item);
    }
    template<class T>
        requires boost::describe::has_describe_members<T>::value
    void fill(T& record) {
        using Fields = boost::describe::describe_members<T, boost::describe::mod_public>;
        boost::mp11::mp_for_each<Fields>([&](auto field) { fill(record.*field.pointer); });
    }
    void fill(ShortcutInjection& value) { fill(value.emplace<ShortcutCase::List>()); }

private:
    std::size_t next(std::size_t bound) { return m_random() % bound; }

    std::size_t m_listLength; ///< of the next list; those inside of it are short
    std::mt19937 m_random{20261121};
};

template<class Answer> GatewayResponse filled(std::size_t listLength) {
    Answer answer;
    Filler(listLength).fill(answer);
    return answer;
}

} // namespace

GatewayResponse textBrowse(std::size_t rows) {
    return filled<AnswerCase::TextBrowse>(rows);
}
GatewayResponse cards() {
    return filled<AnswerCase::Cards>(100);
}
GatewayResponse sessions() {
    return filled<AnswerCase::Sessions>(100);
}
GatewayResponse presence() {
    return filled<AnswerCase::Presence>(100);
}
GatewayResponse spanHours() {
    return filled<AnswerCase::SpanHours>(400);
}
GatewayResponse stretches() {
    return filled<AnswerCase::Stretches>(100);
}
GatewayResponse scopeBoard() {
    return filled<AnswerCase::ScopeBoard>(100);
}
GatewayResponse modBoard() {
    return filled<AnswerCase::ModBoard>(100);
}
GatewayResponse transcript() {
    return filled<AnswerCase::Transcript>(2000);
}
GatewayResponse images() {
    return filled<AnswerCase::Images>(20);
}
GatewayResponse primed() {
    return filled<AnswerCase::Primed>(100);
}

} // namespace wendlow::benchmarks::SampleAnswers
