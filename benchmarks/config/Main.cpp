// Measures KConfig against QHash<int, QVariant>: a get by a random id among 10, 1000 and 100 000
// settings of which half are changed, and what a setting costs in bytes.

#include "Results.h"

#include <zenu/config/KConfig.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QColor>
#include <QHash>
#include <QVariant>

#include <algorithm>
#include <functional>
#include <malloc.h>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using zenu::KConfig;
using Hash = QHash<int, QVariant>;

constexpr int queries = 1 << 18;
constexpr int samples = 25;

struct Ids
{
    explicit Ids(int count)
    {
        std::mt19937 random(1);
        std::set<int> taken;
        while (static_cast<int>(all.size()) < count) {
            int const id = static_cast<int>(random());
            if (taken.insert(id).second) {
                all.push_back(id);
            }
        }
        for (int i = 0; i < queries; ++i) {
            asked.push_back(all[random() % all.size()]);
        }
    }
    std::vector<int> all;
    std::vector<int> asked;
};

std::string nameOf(int i)
{
    return "setting/" + std::to_string(i);
}

std::string textOf(int i)
{
    return "the text of setting " + std::to_string(i);
}

// One type: how a table of each kind is filled, and a get that leaves a number.
struct Kind
{
    char const * name;
    std::function<void(KConfig &, int id, int i)> declare;
    std::function<void(KConfig &, int id, int i)> change;
    std::function<QVariant(int i)> variant;
};

std::vector<Kind> const & kinds()
{
    static std::vector<Kind> const list = {
        {"int", [](KConfig & c, int id, int i) { c.initInt(id, nameOf(i).c_str(), i); },
         [](KConfig & c, int id, int i) { c.setInt(id, i + 1); },
         [](int i) { return QVariant(i); }},
        {"colour", [](KConfig & c, int id, int i) { c.initColor(id, nameOf(i).c_str(), QRgb(i)); },
         [](KConfig & c, int id, int i) { c.setColor(id, QRgb(i + 1)); },
         [](int i) { return QVariant::fromValue(QColor(QRgb(i))); }},
        {"string",
         [](KConfig & c, int id, int i) { c.initString(id, nameOf(i).c_str(), textOf(i).c_str()); },
         [](KConfig & c, int id, int i) { c.setString(id, textOf(i + 1).c_str()); },
         [](int i) { return QVariant(QString::fromStdString(textOf(i))); }},
    };
    return list;
}

std::unique_ptr<KConfig> makeConfig(Kind const & kind, Ids const & ids)
{
    auto config = std::make_unique<KConfig>();
    for (std::size_t i = 0; i < ids.all.size(); ++i) {
        kind.declare(*config, ids.all[i], static_cast<int>(i));
    }
    for (std::size_t i = 0; i < ids.all.size(); i += 2) {
        kind.change(*config, ids.all[i], static_cast<int>(i));
    }
    return config;
}

std::unique_ptr<Hash> makeHash(Kind const & kind, Ids const & ids)
{
    auto hash = std::make_unique<Hash>();
    for (std::size_t i = 0; i < ids.all.size(); ++i) {
        hash->insert(ids.all[i], kind.variant(static_cast<int>(i)));
    }
    return hash;
}

template <typename Table, typename Get>
void addGet(std::string const & work, std::string const & contestant,
            std::function<std::unique_ptr<Table>(Ids const &)> make, int count, Get get)
{
    bench::addContestant(work, contestant, samples, [=]() -> std::function<double()> {
        auto const ids = std::make_shared<Ids>(count);
        std::shared_ptr<Table> const table = make(*ids);
        return [=] {
            return bench::secondsEach(queries, [&](int i) {
                benchmark::DoNotOptimize(get(*table, ids->asked[static_cast<std::size_t>(i)]));
            });
        };
    });
}

template <typename OwnGet, typename HashGet>
void addKind(Kind const & kind, OwnGet ownGet, HashGet hashGet)
{
    for (int count : {10, 1000, 100000}) {
        std::string const work =
            std::string("get ") + kind.name + ", " + std::to_string(count) + " settings";
        bench::addWork(work, 1.0);
        addGet<KConfig>(
            work, bench::zenuName, [&kind](Ids const & ids) { return makeConfig(kind, ids); },
            count, ownGet);
        addGet<Hash>(
            work, "QHash<int, QVariant>", [&kind](Ids const & ids) { return makeHash(kind, ids); },
            count, hashGet);
    }
}

// What `make` takes from the heap for each of 100 000 settings.
template <typename Make>
double bytesEach(Make make)
{
    constexpr int count = 100000;
    Ids const ids(count);
    std::size_t const before = mallinfo2().uordblks + mallinfo2().hblkhd;
    auto const table = make(ids);
    std::size_t const after = mallinfo2().uordblks + mallinfo2().hblkhd;
    benchmark::DoNotOptimize(table.get());
    return static_cast<double>(after - before) / count;
}

void measureMemory()
{
    for (Kind const & kind : kinds()) {
        bench::noteBytes(std::string(kind.name) + " setting, half of them changed",
                         bytesEach([&](Ids const & ids) { return makeConfig(kind, ids); }), 0);
        bench::noteBytes(std::string(kind.name) + " in the hash, without a name and a default",
                         bytesEach([&](Ids const & ids) { return makeHash(kind, ids); }), 0);
    }
    bench::noteBytes("int setting at its default", bytesEach([](Ids const & ids) {
                         auto config = std::make_unique<KConfig>();
                         for (int id : ids.all) {
                             config->initInt(id, "a short name", 1);
                         }
                         return config;
                     }),
                     0);
}

} // namespace

int main(int argc, char ** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication const application(argc, argv);
    addKind(
        kinds()[0], [](KConfig const & config, int id) { return config.getInt(id); },
        [](Hash const & hash, int id) { return hash.value(id).toInt(); });
    addKind(
        kinds()[1], [](KConfig const & config, int id) { return config.getColor(id).red(); },
        [](Hash const & hash, int id) { return hash.value(id).value<QColor>().red(); });
    addKind(
        kinds()[2], [](KConfig const & config, int id) { return config.getString(id)[4]; },
        [](Hash const & hash, int id) { return hash.value(id).toString().at(4).unicode(); });
    measureMemory();
    return bench::runAll(argc, argv);
}
