#pragma once

#include "events/toolscript.h"

#include <deque>
#include <functional>

namespace ToolScript {

/// What a tool stack should do, told step by step with plain vectors and numbers. It never forgets
/// a place while it lives, so that its walks need no care.
class ReferenceStack final : public Subject {
public:
    ReferenceStack(Script& script, Log& log) : m_script(script), m_log(log) {}

    void create(int tool, const Traits& traits) override;
    void drop(int) override {}
    void add(int tool, int role) override;
    void addBeside(int tool, int role, bool isAbove) override;
    void move(int tool, int role, bool isAbove) override;
    bool remove(int tool) override;
    bool removeRole(int role) override;
    void clear() override;
    void cancelAll() override;
    void send(int message) override;
    void setReadonly(bool isReadonly) override;
    void setState(int tool, State state) override;
    void delegate(int tool, Tova2::Event& event) override;
    void dispatch(Tova2::Event& event) override;
    std::string dump() override;

private:
    enum class Phase { Out, In, Cancelled, Leaving };
    struct Player {
        Traits traits;
        State state = State::Idle;
        Phase phase = Phase::Out;
        bool isListed = false;
        bool isHeard = false;
    };
    struct Place {
        int number;
        int tool;
        int role;
        bool isGone = false;
    };
    struct Cursor {
        std::optional<int> shape;
        int from = -1;
    };
    /// The first exception of several calls, thrown when the last has been made.
    struct Calls {
        std::exception_ptr first;
        bool make(const std::function<void()>& call);
        void end() const;
    };

    Player& player(int tool) { return m_players[static_cast<std::size_t>(tool)]; }
    void walk(const std::function<bool(int)>& visit);
    int indexOf(const std::function<bool(const Place&)>& condition) const;
    int indexOfTool(int tool) const;
    int indexOfRole(int role) const;
    void insert(int index, int tool, int role);
    void line(const std::string& text) { m_log.push_back(text); }

    void takeLeave(int tool);
    void leave(int tool);
    void removeDone(Calls& calls);
    void finish(Calls& calls);
    int cancelWalk(int exempt, int reason, Calls& calls);
    void nowActive(int tool);
    void noLongerActive(int tool);
    void forgetActive(int tool);
    bool isShutOut(int tool);
    void collectCursor(int tool);
    void recomputeCursor();
    void applyCursor();

    void offerEverywhere(Tova2::Event& event, bool isRepeat);
    void offerToActive(Tova2::Event& event, bool isRepeat, Calls& calls);
    bool offer(int tool, Tova2::Event& event, bool isRepeat, bool isDeferred, Calls& calls);
    bool tryTool(int tool, Tova2::Event& event, bool isRepeat, bool isDeferred, std::string& text,
                 Calls& calls);
    void handle(int tool, Tova2::Event& event);
    void receive(int tool, int message);

    Script& m_script;
    Log& m_log;
    std::deque<Player> m_players; // callbacks add to it
    std::vector<Place> m_places;  // top first
    int m_numbers = 0;
    int m_active = -1;
    int m_claimant = -1; // for whom the others are being cancelled
    int m_cancelWalks = 0;
    int m_depth = 0;
    int m_dispatches = 0;
    int m_operations = 0;
    int m_activations = 0;
    Cursor m_cursor;
    bool m_isCursorLost = false;
    bool m_isReadonly = false;
    bool m_hasActivated = false;
    bool m_hasSwallowed = false;
};

} // namespace ToolScript
