#pragma once

#include <apps/measure/Options.h>
#include <apps/measure/Report.h>
#include <apps/measure/SceneCatalogue.h>

namespace tesk::measure {

/// A measurement whose points and nodes are found, ready to be computed.
///
/// Choosing the nodes costs nothing; measure() takes as long as the library takes.
class MeasureCommand {
public:
    /// Throws Failure when a node is unknown or ambiguous, or cannot be measured: nothing with an area (for a point's
    /// distance also nothing with a length) in it, beyond the range of single precision, or part of the other object.
    MeasureCommand(const Options& options, const SceneCatalogue& catalogue);

    /// What is measured, such as `vessel to stirrer`; empty when no node is.
    const std::string& getName() const { return name; }
    /// Throws Failure when there is no circle because three points lie on one line, or when the search for the least
    /// distance ends without points.
    Report measure() const;

private:
    struct Place {
        osg::Pnt3f point;
        const CatalogueNode* node;

        osg::NodePtr getNode() const;
        std::string getNodeName() const;
    };

    std::string composeName() const;
    void chooseObjects(const Options& options, const SceneCatalogue& catalogue);
    Report measurePointPoint() const;
    Report measurePointObject() const;
    Report measureObjectObject() const;
    Report measureCircle() const;

    Command command;
    std::vector<Expectation> expectations;
    std::vector<Place> places;
    std::vector<const CatalogueNode*> objects;
    std::string name;
};

} // namespace tesk::measure
