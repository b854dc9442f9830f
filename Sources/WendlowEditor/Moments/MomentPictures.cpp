#include "Moments/MomentsFaceModel.h"

#include <memory>
#include <utility>

namespace wendlow {

namespace {

using World = FacePicture::World;
using Widths = FacePicture::Widths;

} // namespace

FacePictures MomentsFaceModel::pictures() {
    const auto openFirst = [this](bool textCard) {
        return [this, textCard] {
            for (int place = 0; place < m_grid.count(); ++place)
                if (m_grid.moment(place).drawsTextCard() == textCard) {
                    openMoment(place);
                    return;
                }
        };
    };
    // As one of another id, of whose picture nothing is known.
    const auto openFirstAs = [this](const char* id) {
        return [this, id] {
            if (m_grid.count() == 0)
                return;
            EditorMoment moment = m_grid.moment(0);
            moment.id = id;
            moment.shade = 0;
            m_lightbox.show(std::move(moment));
        };
    };
    const auto close = [this] { m_lightbox.dismiss(); };
    const auto answer = [this](EditorAnswerState state) {
        return [this, state = std::move(state)] {
            EditorAnswer posed = *m_answer;
            posed.state = state;
            m_answer = std::make_shared<const EditorAnswer>(std::move(posed));
            Q_EMIT changed();
        };
    };
    FacePictures pictures;
    pictures.push_back({.name = "moments-pending", .world = World::silent});
    pictures.push_back({.name = "moments-warming", .world = World::warming});
    pictures.push_back({.name = "moments-failed", .world = World::refusing});
    pictures.push_back({.name = "moments-empty", .world = World::empty});
    pictures.push_back({.name = "moments", .widths = Widths::every});
    pictures.push_back({.name = "moments-troubled",
                        .stand = answer(EditorAnswerStateCase::Failed{
                            "Wendlow isn't running — start it to access your memory."}),
                        .leave = answer(EditorAnswerStateCase::Settled{})});
    pictures.push_back({.name = "moments-scrolled",
                        .stand = [this] { Q_EMIT revealed(m_grid.count() - 1); },
                        .leave = [this] { Q_EMIT revealed(0); }});
    pictures.push_back({.name = "moments-picture",
                        .widths = Widths::every,
                        .stand = openFirst(false),
                        .leave = close});
    pictures.push_back(
        {.name = "moments-none", .stand = openFirstAs("of another kind"), .leave = close});
    pictures.push_back(
        {.name = "moments-reading", .stand = openFirstAs("9007199254740991"), .leave = close});
    pictures.push_back({.name = "moments-session", .stand = openFirst(true), .leave = close});
    pictures.push_back({.name = "moments-refused",
                        .stand =
                            [this, openFirst] {
                                openFirst(false)();
                                m_lightbox.refuse(
                                    QStringLiteral("No program was found that shows pictures."));
                            },
                        .leave = close});
    return pictures;
}

} // namespace wendlow
