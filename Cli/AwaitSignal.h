#pragma once

#include <QEventLoop>
#include <QObject>

#include <tuple>
#include <type_traits>

// Starts an operation that ends in `signal` of `sender` and waits for that
// signal in a local event loop: the arguments it carried. The answer comes
// queued, so it cannot arrive before the loop runs.
template <typename Sender, typename... Args, typename Start>
std::tuple<std::decay_t<Args>...> AwaitSignal(Sender *sender, void (Sender::*signal)(Args...), Start start)
{
    QEventLoop loop;
    std::tuple<std::decay_t<Args>...> answer;
    QObject::connect(sender, signal, &loop, [&answer, &loop](Args... args) {
        answer = std::make_tuple(args...);
        loop.quit();
    }, Qt::QueuedConnection);
    start();
    loop.exec();
    return answer;
}
