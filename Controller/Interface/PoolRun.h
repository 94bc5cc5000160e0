#pragma once

#include <QFuture>
#include <QThreadPool>
#include <QtConcurrent>

#include <tuple>
#include <type_traits>
#include <utility>

#include "Platform/ThreadHandOff.h"

// QtConcurrent's task of a functor, taking the thread pool's hand-off before
// it looks at anything of itself.
template <typename Work>
class CPoolTask : public QtConcurrent::StoredFunctorCall0<void, Work> {
public:
    using QtConcurrent::StoredFunctorCall0<void, Work>::StoredFunctorCall0;

    void run() override
    {
        Platform::HandOffAcquire(Platform::EHandOff::ThreadPool);
        QtConcurrent::StoredFunctorCall0<void, Work>::run();
    }
};

// Runs `function` of `object` with copies of `args` on the global thread
// pool, as QtConcurrent::run does, and returns at once. Everything the
// caller did before the call is visible to the run.
template <typename Class, typename Base, typename... Params, typename... Args>
QFuture<void> RunInPool(Class *object, void (Base::*function)(Params...), Args &&...args)
{
    auto work = [object, function,
                 params = std::make_tuple(std::decay_t<Args>(std::forward<Args>(args))...)]() mutable {
        std::apply([&](auto &...values) { (object->*function)(std::move(values)...); }, params);
    };
    // QtConcurrent::run's own two steps, with the hand-off between them: the
    // task with its copies is made before it, started after it.
    auto *task = new CPoolTask<decltype(work)>(std::move(work));
    Platform::HandOffRelease(Platform::EHandOff::ThreadPool);
    return task->start(QThreadPool::globalInstance());
}
