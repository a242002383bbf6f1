#pragma once

/// What `--help` says beyond the options themselves.
namespace tesk::measure::help {

constexpr const char* overview =
    R"(Measures in 3D scenes: distances between points and objects, circles through points, gaps, distances along lines.

Scene files are STL, OBJ, PLY, OFF, glTF, GLB, 3MF and DAE. Points are world coordinates; all lengths are in the unit
of the files.)";

constexpr const char* programFooter = R"(Examples:
  tesk-measure list vessel.stl
  tesk-measure object-object vessel.stl stirrer.stl
  tesk-measure point-object part.obj --point 1,2,-3 --node bolt --json
  tesk-measure object-object machine.glb --node1 rotor --node2 stator --expect ">= 1.5" --save machine.xml
  tesk-measure gap machine.glb --from rotor@0,0,0 --to stator@0,0,9 --step 0.5 --csv samples.csv
  tesk-measure run machine.xml machine.glb --expect "rotor to stator >= 1.5"
  tesk-measure object-object vessel.stl stirrer.stl --picture clearance.png --view front

'tesk-measure COMMAND --help' explains a command and its options.

Exit status: 0 done, 1 failure, 2 wrong usage, 3 an expectation was not met.)";

constexpr const char* listFooter = R"(Triangles, lines and bounds of a node include those of everything below it.

Example:
  tesk-measure list vessel.stl machine.glb)";

constexpr const char* pointPointFooter = R"(The row with the sign Δ is point 1 minus point 2.

Example:
  tesk-measure point-point --point1 0,0,0 --point2 -1.5,2,1e-3)";

constexpr const char* pointObjectFooter =
    R"(Triangles and lines of the object count. Point 2 is the nearest point of the object; the row with the sign Δ is
point 1 minus point 2.

Examples:
  tesk-measure point-object part.stl --point -1,2,3
  tesk-measure point-object machine.glb --point 1,2,3 --node rotor)";

constexpr const char* objectObjectFooter =
    R"(Only triangles count. Points 1 and 2 are nearest to each other, one on each object; the row with the sign Δ is
point 1 minus point 2. Objects that touch or intersect have distance 0.

Examples:
  tesk-measure object-object vessel.stl stirrer.stl
  tesk-measure object-object machine.glb --node1 rotor --node2 stator
  tesk-measure object-object a.obj b.obj --node1 a.obj#nut --node2 b.obj#nut --expect "> 0")";

constexpr const char* circleFooter =
    R"(Diameter, circumference and center come with the radius. The normal is not scaled to length 1: its length is twice
the area of the triangle of the three points.

Example:
  tesk-measure circle --point1 1,0,0 --point2 0,1,0 --point3 -1,0,0)";

constexpr const char* gapFooter =
    R"(The track runs from a point on the first object to one on the second. At every step along it, its start included,
the first object is cut across the track, and the least distance between the cut and the whole second object is
a sample. The value is the average; the deviation is the mean of the samples' differences from it.

Example:
  tesk-measure gap machine.glb --from rotor@0,0,0 --to stator@0,0,9 --step 0.5 --csv samples.csv)";

constexpr const char* lineObjectFooter =
    R"(From the place on the line nearest the point, the distance to the object is sampled at every step along the line in
both directions, until the line ends or the distance leaves 0.8 to 1.2 times that at the start. The value is the
average; the deviation is the mean of the samples' differences from it.

Example:
  tesk-measure line-object car.glb --line cable@1,2,3 --to engine --step 0.5 --expect ">= 8")";

constexpr const char* loadFooter = R"(Every measurement is measured anew; nodes are found by their names.

Example:
  tesk-measure load clearances.xml vessel.stl stirrer.stl --json)";

constexpr const char* runFooter =
    R"(As load, with expectations. A measurement is called as the table shows it, with or without its kind. Equal names are
all meant.

Example:
  tesk-measure run clearances.xml vessel.stl stirrer.stl --expect "vessel to stirrer >= 0.08" \
    --expect "gap: shaft to vessel < 2")";

constexpr const char* nodeFooter = R"(

A node is chosen by its file (path, file name, or file name without extension), by its name, or by both as
FILE#NODE. 'tesk-measure list SCENE' shows the names.)";

constexpr const char* pointHelp = "Point in world coordinates, x,y,z or NODE@x,y,z to say what it lies on";

} // namespace tesk::measure::help
