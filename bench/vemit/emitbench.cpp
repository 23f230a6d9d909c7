#include <benchmark/benchmark.h>

#include "vemit/emitter.h"

#include <QObject>

#include <memory>
#include <vector>

namespace {

struct Ear : Vemit::Listener {
    void hear(int value) { sum += value; }

    int sum = 0;
};

class QtEar : public QObject {
    Q_OBJECT
public Q_SLOTS:
    void hear(int value) { sum += value; }

public:
    int sum = 0;
};

class QtMouth : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void said(int value);
};

// What an emission costs beside a Qt signal with as many receivers, from nobody to a crowd.
void BM_VemitSend(benchmark::State& state)
{
    Vemit::Emitter<int> emitter;
    std::vector<Ear> ears(static_cast<std::size_t>(state.range(0)));
    for (Ear& ear : ears)
        emitter.connect(&ear, &Ear::hear);
    benchmark::DoNotOptimize(&emitter);
    for (auto _ : state) {
        emitter.send(1);
        benchmark::ClobberMemory();
    }
}

void BM_QtSignal(benchmark::State& state)
{
    QtMouth mouth;
    std::vector<std::unique_ptr<QtEar>> ears;
    for (int i = 0; i < state.range(0); ++i) {
        ears.push_back(std::make_unique<QtEar>());
        QObject::connect(&mouth, &QtMouth::said, ears.back().get(), &QtEar::hear);
    }
    benchmark::DoNotOptimize(&mouth);
    for (auto _ : state) {
        Q_EMIT mouth.said(1);
        benchmark::ClobberMemory();
    }
}

// Connections come and go with the nodes of a picture: one on an emitter of its own, made and
// ended.
void BM_VemitConnect(benchmark::State& state)
{
    Vemit::Emitter<int> emitter;
    Ear ear;
    for (auto _ : state)
        emitter.connect(&ear, &Ear::hear).disconnect();
}

void BM_QtConnect(benchmark::State& state)
{
    QtMouth mouth;
    QtEar ear;
    for (auto _ : state)
        QObject::disconnect(QObject::connect(&mouth, &QtMouth::said, &ear, &QtEar::hear));
}

BENCHMARK(BM_VemitSend)->Arg(0)->Arg(1)->Arg(10);
BENCHMARK(BM_QtSignal)->Arg(0)->Arg(1)->Arg(10);
BENCHMARK(BM_VemitConnect);
BENCHMARK(BM_QtConnect);

} // namespace

#include "emitbench.moc"

BENCHMARK_MAIN();
