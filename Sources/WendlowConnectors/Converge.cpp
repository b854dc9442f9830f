#include "Converge.h"

namespace wendlow::Converge {

std::vector<Repair> run(const Connectors::List& connectors) {
    std::vector<Repair> repairs;
    for (const auto& connector : connectors)
        if (connector->staleOwnWiring())
            repairs.push_back({connector->identity().name, connector->install()});
    return repairs;
}

} // namespace wendlow::Converge
