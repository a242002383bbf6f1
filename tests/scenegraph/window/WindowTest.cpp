#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGPassiveWindow.h>

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(Viewport, TakesEdgesUpTo1AsFractionsAndLargerOnesAsPixels) {
    osg::osgInit(0, nullptr);
    const osg::WindowRefPtr window(osg::PassiveWindow::create());
    const osg::ViewportRefPtr viewport(osg::Viewport::create());
    window->addPort(viewport);
    window->resize(800, 600);
    const struct {
        float low, high;
        int left, right, bottom, top;
        bool isFull;
    } rows[] = {
        {0, 1, 0, 799, 0, 599, true},          {0.3333f, 0.3333f, 266, 265, 199, 198, false},
        {0.0001f, 0.001f, 0, 0, 0, 0, false},  {1, 2, 800, 2, 600, 2, false},
        {1.5f, 100.9f, 1, 100, 1, 100, false}, {-0.5f, 1000, -400, 1000, -300, 1000, false},
    };
    for (const auto& row : rows) {
        viewport->setSize(row.low, row.low, row.high, row.high);
        EXPECT_EQ(std::tuple(viewport->getPixelLeft(), viewport->getPixelRight(), viewport->getPixelBottom(),
                             viewport->getPixelTop(), viewport->isFullWindow()),
                  std::tuple(row.left, row.right, row.bottom, row.top, row.isFull))
            << row.low << " to " << row.high;
    }
}

TEST(Window, AndItsViewportsMayBeDestroyedInAnyOrder) {
    osg::osgInit(0, nullptr);
    osg::WindowRefPtr window(osg::PassiveWindow::create()), other(osg::PassiveWindow::create());
    osg::ViewportRefPtr first(osg::Viewport::create()), second(osg::Viewport::create());
    window->addPort(first);
    window->addPort(second);
    EXPECT_EQ(first.get().getRefCount(), 1) << "the window holds no reference";
    other->addPort(first);
    EXPECT_EQ(window->getPort().getSize(), 1u) << "a viewport is in one window";
    second = osg::NullFC;
    EXPECT_TRUE(window->getPort().empty());
    other = osg::NullFC;
    EXPECT_TRUE(first->getParent() == osg::NullFC);
}

} // namespace
