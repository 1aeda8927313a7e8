#pragma once

#include "tests/grid_random/Generator.h"

#include <unistd.h>

#include <sys/wait.h>

#include <cstdio>

// Runs sequences, and makes one that fails as short as it gets.

namespace gridrandom {

using Operations = std::vector<Operation>;

struct Failure
{
    int at = -1; // index of the operation that failed, -1 for none
    QString what;

    explicit operator bool() const { return at >= 0; }
};

// The last operation is always followed by a comparison.
inline Failure play(Setup const & setup, Operations const & operations)
{
    int at = 0;
    try {
        Player player(setup);
        for (; at < static_cast<int>(operations.size()); ++at) {
            player.perform(operations[static_cast<std::size_t>(at)]);
        }
        --at;
        player.check();
    } catch (Mismatch const & mismatch) {
        return {std::max(at, 0), QString::fromLatin1(mismatch.what())};
    }
    return {};
}

// In a process of its own, so that a crash is a failure like any other.
inline Failure playApart(Setup const & setup, Operations const & operations)
{
    int ends[2];
    if (pipe(ends) != 0) {
        return {};
    }
    std::fflush(nullptr);
    pid_t const child = fork();
    if (child == 0) {
        close(ends[0]);
        if (!std::freopen("/dev/null", "w", stderr)) {
            _exit(2);
        }
        Failure const failure = play(setup, operations);
        QByteArray const text = failure.what.toLatin1();
        bool const written =
            write(ends[1], text.data(), static_cast<std::size_t>(text.size())) >= 0;
        _exit(failure ? 1 : (written ? 0 : 2));
    }
    close(ends[1]);
    QByteArray text;
    char part[512];
    for (ssize_t got = 0; (got = read(ends[0], part, sizeof part)) > 0;) {
        text.append(part, got);
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        return {};
    }
    return {static_cast<int>(operations.size()) - 1,
            text.isEmpty() ? QStringLiteral("the process ended in the middle")
                           : QString::fromLatin1(text)};
}

// Removes ever smaller pieces as long as it still fails.
template <typename Fails>
Operations shrunk(Operations operations, Fails const & fails)
{
    for (std::size_t piece = std::max<std::size_t>(operations.size() / 2, 1); piece > 0;) {
        bool removed = false;
        for (std::size_t at = 0; at < operations.size();) {
            Operations fewer = operations;
            auto const first = fewer.begin() + static_cast<std::ptrdiff_t>(at);
            auto const left = static_cast<std::size_t>(fewer.end() - first);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(std::min(piece, left)));
            if (fails(fewer)) {
                operations = std::move(fewer);
                removed = true;
            } else {
                at += piece;
            }
        }
        piece = piece == 1 ? (removed ? 1 : 0) : piece / 2;
    }
    return operations;
}

// What is not needed for the failure becomes the plainest there is.
template <typename Fails>
Operations simplified(Operations operations, Fails const & fails)
{
    auto const attempt = [&](auto const & change) {
        Operations plainer = operations;
        change(plainer);
        if (fails(plainer)) {
            operations = std::move(plainer);
        }
    };
    for (std::size_t i = 0; i < operations.size(); ++i) {
        attempt([i](Operations & list) { list[i].vetoes = 0; });
        attempt([i](Operations & list) { list[i].checked = false; });
    }
    return operations;
}

// Null when nothing fails, else seed, shortest sequence and what is wrong, a line each.
template <typename Play>
QString reportShortest(unsigned seed, Setup const & setup, Operations const & operations,
                       Play const & playIt)
{
    auto const fails = [&](Operations const & list) { return bool(playIt(setup, list)); };
    Operations const shortest = simplified(shrunk(operations, fails), fails);
    QString report = QStringLiteral("seed %1: %2 of %3 operations are enough, in a grid of %4 x %5 "
                                    "with style 0x%6%7%8\n")
                         .arg(seed)
                         .arg(shortest.size())
                         .arg(operations.size())
                         .arg(setup.size.width())
                         .arg(setup.size.height())
                         .arg(setup.style, 0, 16)
                         .arg(setup.bars ? QStringLiteral(", scroll bars") : QString(),
                              setup.fast ? QStringLiteral(", fast locator") : QString());
    for (Operation const & operation : shortest) {
        report += QStringLiteral("  ") + describe(operation) + QLatin1Char('\n');
    }
    return report + playIt(setup, shortest).what;
}

} // namespace gridrandom
