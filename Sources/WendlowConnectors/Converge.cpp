#include "Converge.h"

namespace wendlow::Converge {

std::vector<Repair> run(const Connectors::List& connectors) {
    std::vector<Repair> repairs;
    for (const auto& connector : connectors)
        if (connector->staleOwnWiring())
            repairs.push_back({connector->identity().name, connector->install()});
    return repairs;
}

std::vector<Repair> run(const std::filesystem::path& home, const std::filesystem::path& bundle,
                        const std::filesystem::path& applications) {
    return run(Connectors::all(home, bundle, applications));
}

} // namespace wendlow::Converge
