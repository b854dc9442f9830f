#pragma once

#include <QQuickWindow>
#include <QString>

#include <functional>

namespace wendlow {

class ThemeSource;
class WindowModels;

/// One window on the screen whose pictures are taken.
struct PictureSession {
    enum class Focus { away, kept };

    QQuickWindow& window;
    /// Waits until what is to be seen is there, and saves it by this name, without a sign of the
    /// focus or with it.
    std::function<void(const QString& name, Focus focus)> save;
    ThemeSource& looks;
    bool isAsGiven = false; ///< the person has chosen its size or that of its words, which stays
};

/// The pictures of windows that have more than one state: each shows its states one after the
/// other, and leaves the window as it was.
namespace WindowPictures {

void takeSettings(const PictureSession& session, WindowModels& models);
void takeStats(const PictureSession& session, WindowModels& models);
void takeEditor(const PictureSession& session, WindowModels& models);
void takeJourney(const PictureSession& session, WindowModels& models);
void takeWorkbench(const PictureSession& session, WindowModels& models);
void takeControls(const PictureSession& session, WindowModels& models);
void takeFilters(const PictureSession& session, WindowModels& models);
void takeSearch(const PictureSession& session, WindowModels& models);
void takeRows(const PictureSession& session, WindowModels& models);

} // namespace WindowPictures

} // namespace wendlow
