#include "LocalModel.h"

#include <algorithm>
#include <vector>

#include <boost/json/parse.hpp>
#include <boost/json/value.hpp>

namespace wendlow::LocalModel {

bool ready(std::span<const std::string> names) {
    const std::string tagged = std::string(titleModel.substr(0, titleModel.find(':'))) + ":";
    return std::ranges::any_of(names, [&](const std::string& name) {
        return name == titleModel || name.starts_with(tagged);
    });
}

bool readyInTags(std::string_view body) try {
    boost::json::error_code error;
    const boost::json::value document = boost::json::parse(body, error);
    const auto* top = error ? nullptr : document.if_object();
    const auto* models = top != nullptr ? top->if_contains("models") : nullptr;
    if (models == nullptr || !models->is_array())
        return false;
    std::vector<std::string> names;
    for (const boost::json::value& model : models->get_array())
        if (const auto* entry = model.if_object())
            if (const auto* name = entry->if_contains("name"); name != nullptr && name->is_string())
                names.emplace_back(name->get_string());
    return ready(names);
} catch (const std::exception&) {
    return false; // memory ran out
}

} // namespace wendlow::LocalModel
