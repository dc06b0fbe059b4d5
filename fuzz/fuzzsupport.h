#pragma once
#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>

// What every fuzz target shares: the input as Qt bytes, files for the
// loaders that only take a path, and a byte of the input spent on a choice.
// Linking fuzzsupport.cpp also starts Qt once per process, on the offscreen
// platform, with its warnings silenced and its fatal messages still fatal.
namespace Fuzz {

QByteArray bytes(const uint8_t* data, size_t size);

// Writes `content` to `name` in a folder of this process's own, reused by
// every input, and returns the file's path.
QString scratchFile(const QString& name, const QByteArray& content);

// The first byte of `input`, modulo `count`, and removes it; 0 for no input.
int takeChoice(QByteArray& input, int count);

// Ends the process as a crash would, so that libFuzzer keeps the input: for
// a broken promise of the code that no sanitizer can see.
[[noreturn]] void fail(const QString& why);

} // namespace Fuzz
