#pragma once

#include "tova/events/tool.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"

#include <cstdint>
#include <iterator>
#include <limits>
#include <list>
#include <vector>

namespace Tova2 {

/// The tools of one stack with their roles, top first. A tool has one place at most.
///
/// While somebody holds a pin, a place that was given up is only marked: those who walk stay where
/// they are, and the tool stays alive. Places know from which change of the list to which they are
/// in it, so that a walk goes by the list as it found it: it comes to each tool once, however tools
/// are moved about meanwhile, and to none that has been added.
class ToolList {
    static constexpr std::uint64_t kStays = std::numeric_limits<std::uint64_t>::max();

public:
    struct Place {
        Vetra::Holder<Tool> tool;
        Vetra::StringID role;
        std::uint64_t since;
        std::uint64_t until = kStays;
        bool hasLeft = false; ///< the tool, and not only for another place

        bool isGone() const noexcept { return until != kStays; }
    };
    using Position = std::list<Place>::iterator;

    /// Defers the unlinking.
    class Pin {
    public:
        explicit Pin(ToolList& list) noexcept : m_list(list) { ++m_list.m_pins; }
        Pin(const Pin&) = delete;
        Pin& operator=(const Pin&) = delete;
        ~Pin()
        {
            if (--m_list.m_pins == 0 && m_list.m_hasGone)
                m_list.unlinkGone();
        }

    private:
        ToolList& m_list;
    };

    /// One way down the list; a pin has to be held for as long.
    class Walk {
    public:
        explicit Walk(ToolList& list) noexcept
            : m_list(list), m_at(list.m_places.end()), m_began(list.m_changes)
        {}
        /// Null at the end.
        Tool* next()
        {
            m_at = m_isStarted ? std::next(m_at) : m_list.m_places.begin();
            m_isStarted = true;
            while (m_at != m_list.m_places.end() && !isDue(*m_at))
                ++m_at;
            return m_at == m_list.m_places.end() ? nullptr : m_at->tool.get();
        }

    private:
        bool isDue(const Place& place) const noexcept
        {
            return place.since <= m_began && place.until > m_began && !place.hasLeft;
        }

        ToolList& m_list;
        Position m_at;
        std::uint64_t m_began;
        bool m_isStarted = false;
    };

    bool isEmpty() const noexcept { return m_count == 0; }
    Position top() noexcept { return m_places.begin(); }
    Position end() noexcept { return m_places.end(); }
    Position find(const Tool* tool) noexcept;
    Position findRole(const Vetra::StringID& role) noexcept;

    // Changes; who makes one holds a pin.

    void insertAbove(Position position, Tool& tool, const Vetra::StringID& role);
    void moveAbove(Position position, Position moved, const Vetra::StringID& role);
    void remove(Position position) noexcept;

    /// Made anew when the list has changed since. A tool that leaves turns into an empty holder in
    /// the vector handed out.
    const std::vector<Vetra::Holder<Tool>>& current();

private:
    void giveUp(Position position) noexcept;
    void unlinkGone() noexcept;

    std::list<Place> m_places;
    std::vector<Vetra::Holder<Tool>> m_current;
    std::size_t m_count = 0;
    std::uint64_t m_changes = 0;
    int m_pins = 0;
    bool m_hasGone = false;
    bool m_isCurrentDirty = false;
};

} // namespace Tova2
