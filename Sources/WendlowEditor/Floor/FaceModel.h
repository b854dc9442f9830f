#pragma once

#include "Floor/EditorFace.h"
#include "Floor/FacePicture.h"
#include "Floor/MemoryDetails.h"
#include "Floor/RailRow.h"
#include "Floor/SearchHit.h"
#include "Model/EditorAnswer.h"
#include "Model/EditorDate.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQmlIntegration/qqmlintegration.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// What the window shows a face. But for the details, which stay, it is good for the call alone.
struct FaceView {
    const EditorAsk& ask;
    SharedAnswer answer; ///< failed where the store has given up
    bool counted;        ///< the last answer has counted what there is
    std::int64_t generation;
    const MemoryDetails& details;
    std::int64_t looks = 0; ///< how often the same has been read once more, and what is shown stays
};

/// What a face may have the window do.
struct FaceActions {
    std::function<void(EditorAsk)> ask; ///< asks this from now on
    std::function<void(const std::vector<std::string>& ids)> requestDetails;
    std::function<EditorDate()> today;
};

/// A face as the window knows it; it knows no more of any. Where a call takes the ask, the face may
/// change it, and what it has become is asked behind the call. UI thread.
class FaceModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes the faces.")
    /// What the stage shows of it: a `FacePage`.
    Q_PROPERTY(QUrl page READ page CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    /// It is the face on the stage, if no search is.
    Q_PROPERTY(bool open READ isOpen NOTIFY openChanged)
    Q_PROPERTY(bool showsScopeChip READ showsScopeChip CONSTANT)
    /// Something lies over the page that has to be closed first: no search begins behind it.
    Q_PROPERTY(bool modal READ isModal NOTIFY modalChanged)

public:
    virtual EditorFace face() const = 0;
    virtual QUrl page() const = 0;
    /// What it asks for.
    virtual EditorKind kind() const { return EditorKind::memory; }
    /// Scopes and order stay as they are from one face that shares them to the next.
    virtual bool sharesScopes() const { return false; }
    virtual bool showsScopeChip() const { return true; }
    virtual bool isModal() const { return false; }
    /// Whether what a search finds of it is shown on it.
    virtual bool opensHits() const { return true; }
    /// It stands as the hit that led here has left it: a step back is one to the results.
    virtual bool isAsRevealed() const { return true; }

    /// Something that it shows may read differently now. Also told while another face is open, for
    /// what the rail shows.
    virtual void show(const FaceView& view) = 0;
    /// It comes on the stage; one of its rows or a hit may be opened right behind.
    virtual void appear(EditorAsk& /*ask*/) {}
    /// It goes from the stage.
    virtual void leave(EditorAsk& /*ask*/) {}
    /// One step back from what is open on it. Gives whether there was one.
    virtual bool back() { return false; }
    /// A search has led here; the face is open.
    virtual void reveal(const FoundHit& /*found*/, EditorAsk& /*ask*/) {}

    /// Its rows in the rail; as a rule one for all of it.
    virtual std::vector<RailRow> railRows() const;
    /// Nothing: not known.
    virtual std::optional<std::int64_t> railCount() const { return std::nullopt; }
    /// One of its rows has been chosen; the face is open.
    virtual void openPlace(const std::string& /*place*/, EditorAsk& /*ask*/) {}

    /// What it shows first is there.
    virtual bool isFilled() const { return true; }
    virtual FacePictures pictures() { return {}; }
    /// Nothing of what it shows is still to come: a picture of it may be taken.
    virtual bool isStill() const { return true; }

    QString title() const;
    bool isOpen() const { return m_open; }
    /// For the window alone.
    void setOpen(bool open);

Q_SIGNALS:
    void openChanged();
    void modalChanged();

private:
    bool m_open = false;
};

} // namespace wendlow
