#pragma once

#include <QFuture>
#include <QThreadPool>
#include <QtConcurrent>

#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "Platform/ThreadHandOff.h"

// Runs `function` of `object` with copies of `args` on the global thread
// pool and returns at once. Everything the caller did before the call is
// visible to the run.
template <typename Class, typename Base, typename... Params, typename... Args>
QFuture<void> RunInPool(Class *object, void (Base::*function)(Params...), Args &&...args)
{
    auto token = std::make_shared<char>();
    Platform::HandOffRelease(token.get());
    return QtConcurrent::run(QThreadPool::globalInstance(),
                             [object, function, token, params = std::make_tuple(std::decay_t<Args>(
                                                             std::forward<Args>(args))...)]() mutable {
                                 Platform::HandOffAcquire(token.get());
                                 std::apply([&](auto &...values) { (object->*function)(std::move(values)...); },
                                            params);
                             });
}
