#include "DocumentID.h"

namespace wendlow::DocumentID {

std::string kept(std::string_view cited) {
    std::string_view number = cited;
    if (!number.starts_with("m:"))
        return std::string(cited);
    number.remove_prefix(2);
    if (number.starts_with('m'))
        number.remove_prefix(1);
    if (number.empty() || number.find_first_not_of("0123456789") != std::string_view::npos)
        return std::string(cited);
    return "m" + std::string(number);
}

} // namespace wendlow::DocumentID
