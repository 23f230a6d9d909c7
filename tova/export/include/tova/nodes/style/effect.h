#pragma once

#include "tova/nodes/style/stroke.h"
#include "tova/nodes/style/strokeinsettype.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/color.h"
#include "vetra/glpoint.h"

#include <cstdint>
#include <memory>

namespace Tova2 {

/// Up to five visual effects of a node, at most one of each kind. A plain value: copies share
/// nothing, and without any effect it costs one null pointer.
class TOVA_EXPORT Effect {
public:
    enum class Type {
        Shadow,
        Glow,
        Overlay,
        Trace,
        Squiggly,
        Any ///< for `isValid` alone
    };

    /// A blurred copy below the node. Distances and spread are in the node's units, and directions
    /// are the scene's.
    struct TOVA_EXPORT Shadow {
        Vetra::Color color{0, 0, 0, 0.65};
        std::int32_t spread = 3;
        Vetra::GLPoint<int> distance{2, 2};
        bool maskOut = true; ///< leave out what lies under the node itself

        Shadow() noexcept = default;
        Shadow(const Vetra::Color& color, std::int32_t spread, const Vetra::GLPoint<int>& distance,
               bool maskOut);
        /// Black with an opacity from 0 to 1.
        Shadow(double opacity, std::int32_t spread, const Vetra::GLPoint<int>& distance,
               bool maskOut);
        /// Brings spread back to 0..20 and both distances to -100..100, after fields were set
        /// directly.
        void enforceInputValueBoundaries() noexcept;
        bool operator==(const Shadow&) const = default;
    };

    /// A blurred light around the node.
    struct TOVA_EXPORT Glow {
        Vetra::Color color;
        std::int32_t spread;
        bool maskOut;
        double gain; ///< multiplies the blur's coverage, up to full coverage

        Glow(const Vetra::Color& color, std::int32_t spread, bool maskOut, double gain);
        /// Brings spread back to 0..20 and gain to 0..100; NaN becomes 0.
        void enforceInputValueBoundaries() noexcept;
        bool operator==(const Glow&) const = default;
    };

    /// A colour laid over the node's own.
    struct TOVA_EXPORT Overlay {
        Vetra::Color color;
        explicit Overlay(const Vetra::Color& overlayColor) noexcept : color(overlayColor) {}
        bool operator==(const Overlay&) const = default;
    };

    /// A second outline along the node's.
    struct TOVA_EXPORT Trace {
        Tova2::Stroke stroke;
        StrokeInsetType insetType;
        Trace(const Tova2::Stroke& traceStroke, StrokeInsetType type) noexcept
            : stroke(traceStroke), insetType(type)
        {}
        bool operator==(const Trace&) const = default;
    };

    /// A wavy line below the node.
    struct TOVA_EXPORT Squiggly {
        Vetra::Color color;
        explicit Squiggly(const Vetra::Color& lineColor) noexcept : color(lineColor) {}
        bool operator==(const Squiggly&) const = default;
    };

    Effect() noexcept = default;
    Effect(const Effect& other) : m_slots(other.m_slots ? copySlots(*other.m_slots) : nullptr) {}
    Effect(Effect&&) noexcept = default;
    Effect& operator=(const Effect& other) { return *this = Effect(other); }
    Effect& operator=(Effect&&) noexcept = default;
    ~Effect() = default;

    // Each replaces the effect of its kind; values out of range are brought back into it.
    void set(const Shadow& shadow);
    void set(const Glow& glow);
    void set(const Overlay& overlay);
    void set(const Trace& trace);
    void set(const Squiggly& squiggly);
    /// Nothing happens for `Any`.
    void clear(Type type);
    bool isValid(Type type) const noexcept;
    bool isEmpty() const noexcept { return m_slots == nullptr; }

    // Null when absent; good until this value next changes.
    const Shadow* shadow() const noexcept;
    const Glow* glow() const noexcept;
    const Overlay* overlay() const noexcept;
    const Trace* trace() const noexcept;
    const Squiggly* squiggly() const noexcept;

    static Effect createEffect(const Shadow& shadow);
    static Effect createEffect(const Glow& glow);
    static Effect createEffect(const Overlay& overlay);
    static Effect createEffect(const Trace& trace);
    static Effect createEffect(const Squiggly& squiggly);
    /// Takes over every effect that `other` has; those that it lacks stay.
    void combine(const Effect& other);

    /// Exact.
    bool operator==(const Effect& other) const noexcept
    {
        return m_slots == other.m_slots || equals(other);
    }

private:
    struct Slots;
    struct SlotsDeleter {
        TOVA_EXPORT void operator()(Slots* slots) const noexcept;
    };
    using SlotsPointer = std::unique_ptr<Slots, SlotsDeleter>;

    static SlotsPointer copySlots(const Slots& slots);
    Slots& slots();
    bool equals(const Effect& other) const noexcept;

    SlotsPointer m_slots; // the five kinds; null when there is none of them

    TOVA_PLAIN_TYPE("Tova2.Effect");
};

} // namespace Tova2
