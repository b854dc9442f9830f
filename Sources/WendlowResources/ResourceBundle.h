#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// A folder of the product's resources, "<name>.bundle", found however the product is laid out: in
/// an application's bundle, beside a tool that has none, or beside the library that asks.
class ResourceBundle {
public:
    /// Where to look from. What is empty is left out.
    struct Surroundings {
        std::filesystem::path executable;    ///< the program's file
        std::filesystem::path mainResources; ///< the resource folder of the bundle it runs from
        std::filesystem::path mainBundle;    ///< that bundle's own folder
        std::filesystem::path anchor;        ///< the folder of the binary that holds this code

        /// Of this process.
        static Surroundings current();
    };

    /// The resource folder of the application whose program this is; nothing for a program that
    /// lies in none.
    static std::optional<std::filesystem::path> app(const std::filesystem::path& executable);
    /// The folders to look in, in order, each once.
    static std::vector<std::filesystem::path> roots(const Surroundings& surroundings);
    /// Where the bundle of this name may be, in order.
    static std::vector<std::filesystem::path> candidates(std::string_view name,
                                                         const Surroundings& surroundings);
    /// The first of those that opens.
    static std::optional<ResourceBundle>
    find(std::string_view name, const Surroundings& surroundings = Surroundings::current());
    /// The same; without one the installation is broken, and the process ends with a word about
    /// where it looked.
    static ResourceBundle require(std::string_view name,
                                  const Surroundings& surroundings = Surroundings::current());

    const std::filesystem::path& folder() const { return m_folder; }
    /// The path of a resource in it, whether it is there or not.
    std::filesystem::path resource(std::string_view name) const { return m_folder / name; }

private:
    explicit ResourceBundle(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    std::filesystem::path m_folder;
};

} // namespace wendlow
