#include <gmock/gmock.h>

#include "vemit/emitter.h"

#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace Vemit {
namespace {

struct Ear : Listener {};

/// Random operations at every depth of nesting. The model is a list of living connections, and for
/// each emission under way those of them that still have to be called.
class Model {
public:
    explicit Model(unsigned seed) : m_random(seed) { renewEmitter(); }

    void step()
    {
        switch (pick(25)) {
        case 0:
            return renewEmitter();
        case 1:
        case 2:
            return renewEar(pick(m_ears.size()));
        case 3:
            return disconnectEar();
        case 4:
        case 5:
        case 6:
            return disconnectOne();
        case 7:
        case 8:
        case 9:
        case 10:
        case 11:
            return connect();
        default:
            return send();
        }
    }
    int calls() const { return m_calls; }

private:
    struct Record {
        Connection connection;
        std::size_t ear;
    };

    std::size_t pick(std::size_t end) { return m_random() % end; }

    void renewEmitter()
    {
        m_emitter = std::make_unique<Emitter<int>>();
        forgetIf([](const Record&) { return true; });
    }
    void renewEar(std::size_t ear)
    {
        m_ears[ear] = std::make_unique<Ear>();
        forgetIf([ear](const Record& record) { return record.ear == ear; });
    }
    void disconnectEar()
    {
        const std::size_t ear = pick(m_ears.size());
        m_emitter->disconnect(m_ears[ear].get());
        forgetIf([ear](const Record& record) { return record.ear == ear; });
    }
    void connect()
    {
        const int id = m_nextId++;
        const std::size_t ear = pick(m_ears.size());
        if (!m_ears[ear])
            return renewEar(ear);
        auto call = [this, id](int emission) { called(id, emission); };
        m_records[id] = {m_emitter->connect(m_ears[ear].get(), call), ear};
    }
    void disconnectOne()
    {
        if (m_records.empty())
            return;
        const auto record = std::next(m_records.begin(), pick(m_records.size()));
        record->second.connection.disconnect();
        EXPECT_FALSE(record->second.connection.connected());
        m_records.erase(record);
    }
    void send()
    {
        if (m_pending.size() > 3)
            return;
        const int emission = static_cast<int>(m_pending.size());
        m_pending.emplace_back();
        for (const auto& [id, record] : m_records)
            m_pending.back().push_back(id);
        m_emitter->send(emission);
        for (const int id : m_pending.back())
            EXPECT_FALSE(m_records.contains(id)) << "connection " << id << " was left out";
        m_pending.pop_back();
    }
    void called(int id, int emission)
    {
        ++m_calls;
        ASSERT_EQ(emission, static_cast<int>(m_pending.size()) - 1);
        auto& due = m_pending.back();
        while (!due.empty() && !m_records.contains(due.front()))
            due.erase(due.begin());
        ASSERT_FALSE(due.empty()) << "connection " << id << " was not due";
        ASSERT_EQ(due.front(), id);
        due.erase(due.begin());
        for (std::size_t i = pick(3); i > 0; --i)
            step();
    }
    template <class Condition>
    void forgetIf(Condition condition)
    {
        std::erase_if(m_records, [&](const auto& item) {
            const bool gone = condition(item.second);
            EXPECT_EQ(item.second.connection.connected(), !gone);
            return gone;
        });
    }

    std::mt19937 m_random;
    std::unique_ptr<Emitter<int>> m_emitter;
    std::vector<std::unique_ptr<Ear>> m_ears{5};
    std::map<int, Record> m_records; // by id, which grows in the order of connection
    std::vector<std::vector<int>> m_pending;
    int m_nextId = 0;
    int m_calls = 0;
};

TEST(EmitterModelTest, RandomOperationsAgreeWithTheModel)
{
    int calls = 0;
    for (unsigned seed = 0; seed < 100 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Model model(seed);
        for (int i = 0; i < 200; ++i)
            model.step();
        calls += model.calls();
    }
    EXPECT_GT(calls, 10000);
}

} // namespace
} // namespace Vemit
