#include "TranslationContext.h"

#include "Translation.h"
#include "TranslationKey.h"

#include <cstdlib>
#include <libintl.h>

namespace wendlow {

namespace {

std::string written(const char* translated, fmt::string_view english, fmt::format_args args) {
    if (translated) {
        try {
            return fmt::vformat(translated, args);
        } catch (const fmt::format_error&) { // its holes are not those of the sentence
            return fmt::vformat(english, args);
        }
    }
    return fmt::vformat(english, args);
}

} // namespace

std::string_view TranslationContext::view(const char* english) const {
    const char* const translated = Translation::find(m_name, english);
    return translated ? translated : english;
}

std::string TranslationContext::filled(fmt::string_view english, fmt::format_args args) const {
    // A format is a literal, so what is viewed ends in a zero.
    return written(Translation::find(m_name, english.data()), english, args);
}

std::string TranslationContext::filled(std::int64_t number, fmt::string_view one,
                                       fmt::string_view many, fmt::format_args args) const {
    const fmt::string_view english = number == 1 ? one : many;
    if (!Translation::isLoaded())
        return fmt::vformat(english, args);
    const std::string key = TranslationKey::of(m_name, one.data());
    const auto count = static_cast<unsigned long>(std::llabs(number));
    const char* const found = dngettext(TranslationKey::domain, key.c_str(), many.data(), count);
    const bool isEnglish = found == key.c_str() || found == many.data();
    return written(isEnglish ? nullptr : found, english, args);
}

} // namespace wendlow
