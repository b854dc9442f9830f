#pragma once

#include <memory>

namespace wendlow {

/// Lets a coroutine see, when it comes back from an await, whether its object is still there. A
/// member; its owner ends it first thing in its destructor, before the members go that others wait
/// for.
class Lifetime {
public:
    using Watch = std::weak_ptr<void>; ///< expired: the object is gone

    Watch watch() const { return m_token; }
    void end() { m_token.reset(); }

private:
    std::shared_ptr<void> m_token = std::make_shared<char>();
};

} // namespace wendlow
