#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Takes apart the command lines that run a program of this product:
/// `<executable> --harness <harness>`, optionally ` --slot <slot>`; each flag may be written with
/// `=` in place of its space. None of the three holds a space: there is no quoting, and a line that
/// would need it is nobody's.
namespace wendlow::BundleCommand {

/// `command` without a trailing slot flag.
std::string_view withoutSlot(std::string_view command);
/// The harness that `command` names last.
std::optional<std::string_view> harness(std::string_view command);
/// The executable of a command that ends in `harness`'s flag.
std::optional<std::string_view> hookExecutable(std::string_view command, std::string_view harness);
/// Whether `path` is `binary` inside a copy of the application, wherever that copy lies.
bool names(std::string_view path, std::string_view binary);
/// Whether `command` is `current` or runs our server program out of another copy of the application
/// or a build of it.
bool isServer(std::string_view command, std::string_view current);

} // namespace wendlow::BundleCommand
