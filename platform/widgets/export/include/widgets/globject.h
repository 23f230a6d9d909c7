#pragma once

#include "vemit/emitter.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"
#include "widgets/widgets_export.h"

#include <vector>

namespace Widgets {

/// Something with a name in a tree of owners. It is made with `new` and ended with `destroy`, by
/// hand or by its parent's end. GUI thread only.
class WIDGETS_EXPORT GLObject {
    /// What may be asked about an object even when it is gone.
    struct Life : Vetra::Referenced {
        GLObject* object = nullptr; ///< null once deleted
        bool isGoingOn = true;      ///< false as soon as it is being ended
        int uses = 0;
    };

public:
    /// Keeps an object's memory while it lives, so that whoever calls out may still touch the
    /// object when the callback has ended it.
    class WIDGETS_EXPORT Use {
    public:
        explicit Use(GLObject& object);
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        ~Use();
        bool hasEnded() const noexcept { return !m_life->isGoingOn; }

    private:
        Vetra::Holder<Life> m_life;
    };

    /// A parent that is itself ending counts as none.
    GLObject(const Vetra::StringID& name, GLObject* parent);
    GLObject(const GLObject&) = delete;
    GLObject& operator=(const GLObject&) = delete;

    const Vetra::StringID& getName() const noexcept { return m_name; }
    GLObject* getParent() const noexcept { return m_parent; }
    /// In the order in which they were made.
    const std::vector<GLObject*>& getChildren() const noexcept { return m_children; }

    /// Leaves the parent, announces the end, ends the children, the youngest first, and has the
    /// object deleted. Allowed at any time, inside its own callbacks and twice, too.
    void destroy();
    bool hasEnded() const noexcept { return !m_life->isGoingOn; }
    /// Deletes the object, or leaves that to the last `Use` of it. One that has not ended is ended
    /// first. Overridden by who disposes of its objects in another way; it can be called again.
    virtual void doDelete();

    /// Sent once, with the object still whole. What a listener throws is reported.
    Vemit::Emitter<GLObject*>& getDestroyEmitter() noexcept { return m_destroyEmitter; }

    /// Whether its type is `typeName` or derives from it; the name is like "Widgets.Object".
    virtual bool isa(const char* typeName) const;
    virtual const char* getFullyQualifiedKobjTypeName() const { return "Widgets.Object"; }

protected:
    virtual ~GLObject();
    /// The part of a derived class in the end. The children have ended; the object may live on for
    /// as long as it is in use.
    virtual void doEnd() {}
    bool isInUse() const noexcept { return m_life->uses > 0; }
    static bool sameType(const char* left, const char* right) noexcept;

private:
    template <class T>
    friend class ObjectWatch;
    enum class Stage { Alive, Ending, Ended };

    void end() noexcept;
    void announce() noexcept;
    void leaveParent() noexcept;

    Vetra::StringID m_name;
    GLObject* m_parent = nullptr;
    std::vector<GLObject*> m_children;
    Vetra::Holder<Life> m_life;
    Stage m_stage = Stage::Alive;
    Vemit::Emitter<GLObject*> m_destroyEmitter;
};

} // namespace Widgets
