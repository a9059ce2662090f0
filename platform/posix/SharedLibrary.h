#pragma once

// Whether there is a regular file that holds all that is loaded from it, as far as its header tells.
bool IsWholeFile(const char* path) noexcept;

// dlopen for a file at which anything may lie; null when it cannot be loaded. What is no regular file is not opened: a
// pipe would keep dlopen waiting. A library that was cut short is refused: dlopen would reach behind its end, which
// ends the program. A bare name is looked for by the system alone.
void* OpenSharedLibrary(const char* path) noexcept;
