#pragma once

#include <filesystem>
#include <optional>

/// The terms that a person agrees to, shown in their browser. The owner of the product may set an
/// address at build time; else it is the page that lies in the application's bundle.
namespace wendlow::TermsPage {

void open(const std::optional<std::filesystem::path>& bundle);

} // namespace wendlow::TermsPage
