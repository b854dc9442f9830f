#pragma once

#include <filesystem>

/// The catalogue that a program speaks by: gettext's, of the domain "wendlow". A language is one
/// file, `locale/<language>/LC_MESSAGES/wendlow.mo`, made from `Translations/<language>.po`.
/// Without one every sentence is the English that stands in the sources, byte for byte.
namespace wendlow::Translation {

/// Speaks the language of the environment (`LANGUAGE`, `LC_ALL`, `LC_MESSAGES`, `LANG`) where
/// `resources` (the bundle's `Contents/Resources`) holds its catalogue, else English. Sets the
/// process's locale of messages. Called once, by `main`, before the first sentence and before other
/// threads; a program that does not call it speaks English, as does whatever another program reads.
void begin(const std::filesystem::path& resources);
/// Whether a catalogue was found. Any thread.
bool isLoaded();
/// What the catalogue has for this sentence in this context, or nothing. It lasts as long as the
/// program. Any thread.
const char* find(const char* context, const char* english);

/// While one lives, all is said in English: for what is read out of a sentence by its shape. In a
/// program of one thread.
class InEnglish {
public:
    InEnglish();
    ~InEnglish();
    InEnglish(const InEnglish&) = delete;
    InEnglish& operator=(const InEnglish&) = delete;

private:
    bool m_wasLoaded;
};

} // namespace wendlow::Translation
