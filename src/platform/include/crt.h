#pragma once

/// The C runtime's random generator as the game's rules count on it: the same numbers on every machine. The names of
/// the namespace are those of the C library, whose own functions give other sequences.
namespace crt {

/// Starts the process-wide sequence anew.
void srand(unsigned seed);
/// The next number of the sequence, 0 to 32767. Any thread may draw; each number is handed out once.
[[nodiscard]] int rand();

}  // namespace crt
