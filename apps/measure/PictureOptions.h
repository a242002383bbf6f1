#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGVector.h>

#include <optional>
#include <string>
#include <string_view>

namespace tesk::measure {

struct PictureSize {
    int width = 1280;
    int height = 960;
};

/// How the command line wants the picture.
struct PictureOptions {
    /// Where it goes, empty for no picture.
    std::string file;
    PictureSize size;
    /// From the scene towards the viewer.
    osg::Vec3f viewFrom{1.0f, -1.0f, 1.0f};
    osg::Color3f background{0.13f, 0.16f, 0.19f};
    /// The measurement that chart and legend show, as the tables call it; empty for one that the program chooses.
    std::string active;
    /// Significant digits of the labels; none for as many as the scene's size calls for.
    std::optional<int> digits;
};

/// Both sides of `1280x960`, from 1 to what a picture may have; nothing for other texts.
std::optional<PictureSize> parsePictureSize(std::string_view text);

/// `iso`, `front` and the like, or a vector `x,y,z` from the scene towards the viewer that is not zero.
///
/// z is up: front looks along y, right along -x, top along -z with y up in the picture.
std::optional<osg::Vec3f> parseView(std::string_view text);

/// A name, `#rrggbb`, or `r,g,b` from 0 to 255.
std::optional<osg::Color3f> parseColor(std::string_view text);

} // namespace tesk::measure
