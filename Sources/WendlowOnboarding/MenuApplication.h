#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Starts the product's menu-bar application by what the desktop offers.
namespace wendlow::MenuApplication {

/// By its desktop entry, else by the session bus. Does not wait; the log tells where there is
/// nothing to open.
void open(const std::string& id, const std::function<void(const std::string& line)>& log);

/// The program and its arguments of a desktop entry, without the places for files and addresses;
/// nothing where it names none.
std::optional<std::vector<std::string>> commandIn(std::string_view entry);

} // namespace wendlow::MenuApplication
