#pragma once

#include <rendering/import/SceneImporter.h>
#include <rendering/import/detail/FlatScene.h>

namespace tesk::rendering::detail {

/// Reads the file in a child process under the limits and waits for it.
///
/// The child inherits nothing that it could disturb: its output goes nowhere, it leaves no core file, and it ends with
/// the thread that waits for it; Ctrl-C reaches both. Memory is not limited under AddressSanitizer, which reserves
/// more address space than any limit.
///
/// Throws UnreadableFile with the cause when the file cannot be read or the child crashes, exceeds a limit or sends
/// something else than a scene.
FlatScene readInChildProcess(const std::string& file, const ImportLimits& limits);

} // namespace tesk::rendering::detail
