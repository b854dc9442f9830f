#pragma once

#include "TranslationContext.h"

#include <QString>

#include <type_traits>
#include <utility>

namespace wendlow {

namespace Translation {

/// What a hole is filled with: Qt's strings as UTF-8, all else as it is.
template<class Arg>
using Filling = std::conditional_t<std::is_convertible_v<Arg, QStringView>, std::string,
                                   std::remove_cvref_t<Arg>>;

template<class Arg> Filling<Arg> filling(Arg&& arg) {
    if constexpr (std::is_convertible_v<Arg, QStringView>)
        return QStringView(arg).toUtf8().toStdString();
    else
        return std::forward<Arg>(arg);
}

} // namespace Translation

/// The door of a module that speaks in Qt's strings: as TranslationContext, for QString.
class QtTranslationContext {
public:
    constexpr explicit QtTranslationContext(const char* name) : m_words(name) {}

    QString operator()(const char* english) const { return shown(m_words.view(english)); }
    template<class... Args>
        requires(sizeof...(Args) > 0)
    QString operator()(fmt::format_string<Translation::Filling<Args>...> english,
                       Args&&... args) const {
        return shown(m_words(english, Translation::filling(std::forward<Args>(args))...));
    }
    template<class... Args>
    QString plural(std::int64_t number, fmt::format_string<Translation::Filling<Args>...> one,
                   fmt::format_string<Translation::Filling<Args>...> many, Args&&... args) const {
        return shown(
            m_words.plural(number, one, many, Translation::filling(std::forward<Args>(args))...));
    }

private:
    static QString shown(std::string_view words) {
        return QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
    }

    TranslationContext m_words;
};

} // namespace wendlow
