#include "CatalogueTranslator.h"

#include "Translation.h"

namespace wendlow {

bool CatalogueTranslator::isEmpty() const {
    return !Translation::isLoaded();
}

QString CatalogueTranslator::translate(const char* context, const char* english, const char*,
                                       int) const {
    const char* const translated = Translation::find(context, english);
    return translated ? QString::fromUtf8(translated) : QString();
}

} // namespace wendlow

#include "moc_CatalogueTranslator.cpp"
