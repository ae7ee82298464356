#pragma once

#include "backend/status.h"
#include "files.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <utility>

// The debug lines of an action.
template <class Action>
std::string said_by(Action action) {
    write_file("/tmp/wlandbg", "");
    testing::internal::CaptureStdout();
    action();
    std::fflush(stdout);
    std::remove("/tmp/wlandbg");
    return testing::internal::GetCapturedStdout();
}

// What a getter answers: its status, and its number; 99 where it left that alone.
using Answer = std::pair<Status, unsigned>;
template <class Getter, class... Arguments>
Answer answer(Getter getter, Arguments... arguments) {
    unsigned number = 99;
    const Status status = getter(arguments..., &number);
    return {status, number};
}
