#pragma once

#include "tova/nodes/node.h"
#include "tova/typename.h"
#include "vetra/referenced.h"

#include <cstddef>
#include <functional>

namespace Tova2 {

/// Reference to an element that does not keep it alive; usable as a key of hashed containers. GUI
/// thread only.
///
/// Identity and hash outlive the element: references to a dead element stay equal to each other,
/// and never equal one to a new element, even if that has come to lie at the same address.
class TOVA_EXPORT WeakRef {
public:
    constexpr WeakRef() noexcept = default;
    /// Makes the element first if need be; empty for an empty handle.
    explicit WeakRef(const Node& node);
    explicit WeakRef(NodeImpl* impl);

    /// Whether the element lives and somebody holds it.
    bool isValid() const noexcept { return getImpl() != nullptr; }
    /// An empty handle once the element is dead.
    Node getNode() const;
    /// Null once the element is dead.
    NodeImpl* getImpl() const noexcept;
    std::size_t hashValue() const noexcept;

    bool operator==(const WeakRef&) const noexcept = default;
    friend std::size_t hash_value(const WeakRef& ref) noexcept { return ref.hashValue(); }

private:
    friend struct NodeExtras;
    friend struct WeakRefAccess;

    /// Stands for the element's identity; shared by all references to it.
    class Anchor final : public Vetra::Referenced {
    public:
        explicit Anchor(NodeImpl& impl) : m_impl(&impl) {}
        NodeImpl* m_impl;
    };
    void expire() noexcept;

    Vetra::Holder<Anchor> m_anchor;

    TOVA_PLAIN_TYPE("Tova2.WeakRef");
};

} // namespace Tova2

template <>
struct std::hash<Tova2::WeakRef> {
    std::size_t operator()(const Tova2::WeakRef& ref) const noexcept { return ref.hashValue(); }
};
