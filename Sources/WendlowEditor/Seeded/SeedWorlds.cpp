#include "Seeded/SeedWorlds.h"

#include "Seeded/SeedBuilders.h"

namespace wendlow {

SeededContents SeedWorlds::contents(SeedWorld world) {
    switch (world) {
    case SeedWorld::dayZero:
        break;
    case SeedWorld::someData:
        return someData();
    case SeedWorld::powerUser:
        return powerUser();
    }
    return {};
}

EditorDate SeedWorlds::daysAgo(int days) {
    using namespace std::chrono;
    return sys_days(year(2026) / November / 20) + hours(12) - hours(24) * days;
}

} // namespace wendlow
