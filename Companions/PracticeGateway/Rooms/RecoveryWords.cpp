#include "PhraseRoom.h"

#include <algorithm>
#include <array>

namespace wendlow::RecoveryWords {
namespace {

// In the order of the alphabet; a word's place is the byte that it stands for.
constexpr std::array<std::string_view, 256> list = {
    "acre",    "alder",    "amber",   "anchor", "apple",    "april",   "apron",   "arbor",
    "arch",    "arrow",    "ash",     "aspen",  "attic",    "autumn",  "axle",    "badge",
    "bake",    "balcony",  "ballad",  "bamboo", "barley",   "barn",    "basil",   "basin",
    "basket",  "beacon",   "bean",    "bell",   "bench",    "berry",   "birch",   "biscuit",
    "blanket", "blossom",  "board",   "bonnet", "border",   "bottle",  "bowl",    "branch",
    "brass",   "bread",    "brick",   "bridge", "brook",    "broom",   "brush",   "bucket",
    "button",  "cabin",    "cable",   "camel",  "candle",   "canvas",  "carpet",  "carrot",
    "castle",  "cedar",    "cellar",  "chalk",  "cherry",   "chess",   "chimney", "cider",
    "cinema",  "cinnamon", "circle",  "citrus", "clay",     "cliff",   "clock",   "cloud",
    "clover",  "coal",     "coast",   "cobalt", "cocoa",    "comet",   "compass", "copper",
    "coral",   "cork",     "cotton",  "cradle", "crane",    "crater",  "cricket", "crystal",
    "curtain", "cypress",  "daisy",   "dancer", "dawn",     "delta",   "desert",  "diamond",
    "dinner",  "dock",     "dolphin", "donkey", "door",     "dove",    "dragon",  "drawer",
    "drum",    "dune",     "dusk",    "eagle",  "east",     "echo",    "elbow",   "elder",
    "ember",   "engine",   "evening", "falcon", "fence",    "fern",    "ferry",   "fiddle",
    "field",   "finch",    "flint",   "flour",  "flute",    "forest",  "fossil",  "fountain",
    "fox",     "frost",    "galaxy",  "garden", "garlic",   "gate",    "ginger",  "glacier",
    "glass",   "globe",    "glove",   "gold",   "granite",  "grape",   "grass",   "gravel",
    "guitar",  "gull",     "hammer",  "harbor", "harp",     "harvest", "hazel",   "heather",
    "hedge",   "helmet",   "heron",   "hill",   "hollow",   "honey",   "horizon", "horse",
    "island",  "ivory",    "ivy",     "jacket", "jasmine",  "jewel",   "jungle",  "kettle",
    "kite",    "kitten",   "ladder",  "lake",   "lamp",     "lantern", "lark",    "laurel",
    "lemon",   "lentil",   "letter",  "lily",   "linen",    "lizard",  "lobster", "locket",
    "lotus",   "magnet",   "maple",   "marble", "market",   "meadow",  "melon",   "mill",
    "mint",    "mirror",   "monsoon", "moss",   "mountain", "mustard", "nectar",  "needle",
    "nest",    "north",    "nutmeg",  "oak",    "oasis",    "oat",     "ocean",   "olive",
    "onion",   "orbit",    "orchard", "otter",  "oven",     "owl",     "paddle",  "panda",
    "paper",   "pearl",    "pebble",  "pepper", "piano",    "pigeon",  "pillow",  "pine",
    "planet",  "plum",     "pocket",  "pond",   "poppy",    "prairie", "quartz",  "quilt",
    "rabbit",  "radish",   "raft",    "rain",   "raven",    "reed",    "ribbon",  "river",
    "robin",   "rocket",   "rose",    "saddle", "saffron",  "sail",    "salmon",  "sand",
    "satin",   "scarf",    "shell",   "silver", "spruce",   "star",    "stone",   "sunset"};
static_assert(std::ranges::is_sorted(list));

/// Each byte has a weight of its own, so that two which change places change it too.
std::uint8_t checkOf(std::string_view key) {
    unsigned sum = 0x5A;
    for (const char byte : key)
        sum = sum * 31 + static_cast<unsigned char>(byte);
    return static_cast<std::uint8_t>(sum ^ (sum >> 8U));
}

} // namespace

std::vector<std::string> phraseOf(std::string_view key) {
    std::vector<std::string> words;
    for (const char byte : key)
        words.emplace_back(list[static_cast<unsigned char>(byte)]);
    words.emplace_back(list[checkOf(key)]);
    return words;
}

bool isWord(std::string_view word) {
    return std::ranges::binary_search(list, word);
}

bool checks(const std::vector<std::string>& words) {
    std::string key;
    for (const std::string& word : words)
        key += static_cast<char>(std::ranges::lower_bound(list, word) - list.begin());
    const auto check = static_cast<std::uint8_t>(key.back());
    key.pop_back();
    return checkOf(key) == check;
}

} // namespace wendlow::RecoveryWords
