#pragma once

#include <rendering/import/detail/FlatScene.h>

#include <cstdio>

/// The form in which a flat scene travels from the process that reads a file to the one that wants it.
namespace tesk::rendering::detail {

/// Both flush; errors in writing are ignored, since the receiver sees them.
void writeScene(std::FILE* stream, const FlatScene& scene);
void writeFailure(std::FILE* stream, const std::string& cause);

/// The stream ends before the message does.
class MessageCutShort : public std::exception {};

/// The stream holds something that writeScene() does not write.
class MessageDamaged : public std::exception {};

/// Reads a message and checks all of it: counts against what arrives, indices, kinds, depth, finite numbers.
///
/// Takes no more memory than the message brings, and at most maximumBytes. Throws UnreadableFile for the cause given to
/// writeFailure(), MessageCutShort or MessageDamaged.
FlatScene readScene(std::FILE* stream, std::uint64_t maximumBytes);

} // namespace tesk::rendering::detail
