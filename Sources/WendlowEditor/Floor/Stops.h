#pragma once

namespace wendlow::Stops {

/// The row of a list that is reached from `from` by so many stops down, or up where `by` is below
/// zero; the last that there is on the way. The list has `holds(index)` and `isStop(index)`.
template<class List> int reached(const List& list, int from, int by) {
    const int step = by < 0 ? -1 : 1;
    int reached = from;
    for (int at = from + step; by != 0 && list.holds(at); at += step)
        if (list.isStop(at)) {
            reached = at;
            by -= step;
        }
    return reached;
}

} // namespace wendlow::Stops
