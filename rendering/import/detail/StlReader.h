#pragma once

#include <rendering/import/detail/FlatScene.h>

namespace tesk::rendering::detail {

/// Reads an STL file, binary or text, whatever can be understood of it; notes say what cannot.
///
/// A file is binary when it is as long as it states, else text when its first thousand bytes hold no control characters
/// or the word "vertex". The word "solid" decides nothing, since binary files begin with it too. Each solid of a text
/// file becomes a geometry with the rest of the line as its name. The text form takes numbers as std::from_chars does,
/// independent of the locale.
///
/// The general importer is not used because it refuses binary files whose length differs from what they state, and
/// keeps only the first word of a solid's name.
///
/// Throws UnreadableFile when the file is neither.
FlatScene readStl(const std::string& file);

} // namespace tesk::rendering::detail
