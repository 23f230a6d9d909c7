#pragma once

#include "tova/events/event.h"
#include "tova/events/tool.h"

#include <optional>
#include <random>
#include <string>
#include <vector>

/// Random play on a tool stack, the same for the real one and for the reference: as long as both
/// make the same calls in the same order, they are told to do the same.
namespace ToolScript {

using State = Tova2::Tool::EInteractionState;
using Log = std::vector<std::string>;

struct Thrown {
    int number;
};

/// What a tool answers when it is asked.
struct Traits {
    bool isModifying = false;
    bool isTransparent = false;
    bool wantsRepeats = false;
    int scrollType = 0;
    std::optional<int> cursor;
};

constexpr int kRoles = 6;
constexpr int kClasses = 4; ///< of tools; tool n has class n modulo this

std::string roleName(int role);
std::string className(int tool);
std::string messageName(int message);

/// A tool stack with tools that are numbered. Calls throw what the script throws.
class Subject {
public:
    virtual ~Subject();
    virtual void create(int tool, const Traits& traits) = 0;
    virtual void drop(int tool) = 0; ///< The script forgets the tool, the stack may still hold it.
    virtual void add(int tool, int role) = 0;
    virtual void addBeside(int tool, int role, bool isAbove) = 0;
    virtual void move(int tool, int role, bool isAbove) = 0;
    virtual bool remove(int tool) = 0;
    virtual bool removeRole(int role) = 0;
    virtual void clear() = 0;
    virtual void cancelAll() = 0;
    virtual void send(int message) = 0;
    virtual void setReadonly(bool isReadonly) = 0;
    virtual void setState(int tool, State state) = 0;
    virtual void delegate(int tool, Tova2::Event& event) = 0;
    virtual void dispatch(Tova2::Event& event) = 0;
    virtual std::string dump() = 0;
};

class Script {
public:
    Script(unsigned seed, Log& log, Tova2::EventCanvas& canvas)
        : m_random(seed), m_log(log), m_canvas(canvas)
    {}
    void play(Subject& subject, int steps);

    /// What a tool does when it is called; may throw.
    void called(int tool, const std::string& how, Tova2::Event* event = nullptr);
    /// The same for `cancel`, which mostly ends the gesture.
    void cancelled(int tool, int reason, int cause);
    /// When it is asked for its cursor.
    void asked(int tool);

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool oneIn(int n) { return below(n) == 0; }
    int anyTool(int self);
    void act(int self, Tova2::Event* event);
    void perform(int self, Tova2::Event* event);
    void changeStack(int self);
    void dispatchNew();
    int create();

    std::mt19937 m_random;
    Log& m_log;
    Tova2::EventCanvas& m_canvas;
    Subject* m_subject = nullptr;
    std::vector<int> m_known; // tools that are not forgotten
    int m_created = 0;
    int m_thrown = 0;
    int m_nesting = 0;
    int m_budget = 0;
    bool m_isReadonly = false;
};

} // namespace ToolScript
