#pragma once

#include <apps/measure/SceneCatalogue.h>

#include <string>

namespace tesk::measure {

/// The node that a text means, tried in this order; the first that fits anything decides:
/// - the path of a file as given, which stands for the file's root;
/// - the file name of a path;
/// - a file name without its extension, or the name of a node;
/// - `FILE#NODE`, with FILE as above and NODE a name that the node has in that file, or else its unique name.
///
/// Throws Failure when nothing fits, with the names that come close, and when more than one node fits, with a spelling
/// for each.
const CatalogueNode& selectNode(const SceneCatalogue& catalogue, const std::string& text);

} // namespace tesk::measure
