#include "PersonsPart.h"

#include "Observation.h"
#include "Say.h"

namespace wendlow {

std::optional<std::string> PersonsPart::sentence(Fate fate) const {
    if (isNothing())
        return std::nullopt;
    const bool isReplaced = fate == Fate::replaced;
    const std::string held = listed(keys);
    if (!command)
        return isReplaced ? say("the {} entry here held {}, which Wendlow did not write, and this "
                                "was replaced",
                                entry, held)
                          : say("the {} entry here held {}, which Wendlow did not write, and this "
                                "was removed",
                                entry, held);
    if (keys.empty())
        return isReplaced ? say("the {} entry here ran {}, which Wendlow did not write, and this "
                                "was replaced",
                                entry, *command)
                          : say("the {} entry here ran {}, which Wendlow did not write, and this "
                                "was removed",
                                entry, *command);
    return isReplaced
               ? say("the {} entry here ran {} and held {}, which Wendlow did not write, and "
                     "this was replaced",
                     entry, *command, held)
               : say("the {} entry here ran {} and held {}, which Wendlow did not write, and "
                     "this was removed",
                     entry, *command, held);
}

} // namespace wendlow
