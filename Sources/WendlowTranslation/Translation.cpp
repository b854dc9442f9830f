#include "Translation.h"

#include "TranslationKey.h"

#include <atomic>
#include <clocale>
#include <libintl.h>

namespace wendlow {

namespace {

std::atomic<bool> loaded = false;

} // namespace

void Translation::begin(const std::filesystem::path& resources) {
    std::setlocale(LC_MESSAGES, "");
    bindtextdomain(TranslationKey::domain, (resources / "locale").c_str());
    bind_textdomain_codeset(TranslationKey::domain, "UTF-8");
    // The entry of no text is the file's own head: there where a file is.
    loaded = *dgettext(TranslationKey::domain, "") != '\0';
}

bool Translation::isLoaded() {
    return loaded.load(std::memory_order_relaxed);
}

const char* Translation::find(const char* context, const char* english) {
    if (!isLoaded())
        return nullptr;
    const std::string key = TranslationKey::of(context, english);
    const char* const found = dgettext(TranslationKey::domain, key.c_str());
    return found == key.c_str() ? nullptr : found;
}

Translation::InEnglish::InEnglish() : m_wasLoaded(loaded.exchange(false)) {}

Translation::InEnglish::~InEnglish() {
    loaded = m_wasLoaded;
}

} // namespace wendlow
