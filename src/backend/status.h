#pragma once

// The result of every operation of the API and of the backend.
enum [[nodiscard]] Status : int{
    success = 0, failure = -1,
    unchanged = 2,   // the stored value was already equal, nothing was written
    in_progress = 3, // accepted, not finished yet
};

// Of two writes that make one setting: unchanged only when both found their value stored.
constexpr Status code_of_two(Status first, Status second) {
    if (first == failure || second == failure)
        return failure;
    return first == unchanged && second == unchanged ? unchanged : success;
}
