#include <gtest/gtest.h>

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QOpenGLFunctions_2_1>
#include <cmath>
#include <random>
#include <vector>

#include "Lattices.h"
#include "LiteralView.h"

namespace quorvane {
namespace {

/// One red site in a lattice of type 0, which is transparent.
std::unique_ptr<GraphicalLatticeModelGL> viewOfOneRedSite(int width, int imax, int i, int j) {
  auto view = shownView(width, width);
  fillLattice(*view, 2, imax, imax, [=](int a, int b) { return a == i && b == j ? 1 : 0; });
  view->setPixelAlpha(0, 0.0);
  return view;
}

/// The rectangle of the red pixels, counted from the bottom left; empty if they do not form one.
QRect redRectangle(const QImage& frame) {
  QRect bounds;
  int red = 0;
  for (int x = 0; x < frame.width(); ++x)
    for (int y = 0; y < frame.height(); ++y)
      if (colorAt(frame, x, y) == QColor(Qt::red)) {
        bounds |= QRect(x, y, 1, 1);
        ++red;
      }
  return red == bounds.width() * bounds.height() ? bounds : QRect();
}

TEST(Frame, IsBlackBeforeTheModelIsInitialisedWhateverTheArraysContain) {
  auto view = shownView(200, 200);
  fillLattice(*view, 2, 20, 20, [](int, int) { return 1; });
  ASSERT_EQ(colorAt(gui::frameOf(*view), 5, 5), QColor(Qt::red));
  QImage black(200, 200, QImage::Format_RGB32);
  black.fill(Qt::black);
  for (const int state : {0, -1}) {
    view->varMyState = state;
    EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), black)) << "state " << state;
  }
}

TEST(Frame, IsBlackRightAfterTheStart) {
  auto view = shownView(120, 90);
  const QImage frame = gui::frameOf(*view);
  ASSERT_EQ(frame.size(), QSize(120, 90));
  for (int x = 0; x < 120; ++x)
    for (int y = 0; y < 90; ++y) ASSERT_EQ(colorAt(frame, x, y), QColor(Qt::black)) << x << ", " << y;
}

TEST(Frame, IsDrawnInEveryStateAboveZero) {
  auto view = shownView(100, 100);
  fillLattice(*view, 2, 10, 10, [](int, int) { return 1; });
  for (const int state : {1, 2, 10}) {
    view->varMyState = state;
    EXPECT_EQ(colorAt(gui::frameOf(*view), 5, 5), QColor(Qt::red)) << "state " << state;
  }
}

TEST(Frame, ShowsSitesTenPointsApartAsSquaresOfEightWithBlackGapsOfTwo) {
  auto view = shownView(200, 200);
  fillLattice(*view, 4, 20, 20, [](int i, int j) { return 1 + (i + 2 * j) % 3; });
  const QImage frame = gui::frameOf(*view);
  for (int x = 0; x < 200; ++x)
    for (int y = 0; y < 200; ++y) {
      const bool gap = x % 10 < 2 || y % 10 < 2;
      const QColor site = paletteColor(view->getSiteValue(x / 10, y / 10));
      ASSERT_EQ(colorAt(frame, x, y), gap ? QColor(Qt::black) : site) << x << ", " << y;
    }
}

TEST(Frame, StartsTheFirstSquareTwoPointsFromTheLeftAndTheBottom) {
  auto view = viewOfOneRedSite(200, 20, 0, 0);
  EXPECT_EQ(redRectangle(gui::frameOf(*view)), QRect(2, 2, 8, 8));
}

TEST(Frame, ShowsSitesExactlyEightPointsApartWithoutGapsAndOverlappingByOne) {
  auto view = viewOfOneRedSite(512, 64, 3, 5);
  EXPECT_EQ(redRectangle(gui::frameOf(*view)), QRect(24, 40, 9, 9));
  EXPECT_EQ(view->varSiteSpacing, 8.0);
}

TEST(Frame, ShowsSitesBelowEightPointsApartOverlappingByOne) {
  auto view = viewOfOneRedSite(200, 50, 0, 7);
  EXPECT_EQ(redRectangle(gui::frameOf(*view)), QRect(0, 28, 5, 5));
}

TEST(Frame, DrawsColumnsFromTheLeftAndRowsFromTheBottom) {
  auto view = viewOfOneRedSite(200, 50, 49, 0);
  EXPECT_EQ(redRectangle(gui::frameOf(*view)), QRect(196, 0, 4, 5));
  view = viewOfOneRedSite(200, 50, 0, 49);
  EXPECT_EQ(redRectangle(gui::frameOf(*view)), QRect(0, 196, 5, 4));
}

TEST(Frame, ShowsOpaqueSitesAtEverySpacing) {
  struct Case {
    int width, height, imax, jmax;
  };
  for (const Case c :
       {Case{512, 512, 64, 64}, Case{444, 300, 100, 100}, Case{170, 170, 20, 20}, Case{254, 254, 254, 254},
        Case{300, 300, 7, 7}, Case{444, 566, 102, 130}, Case{150, 90, 256, 256}}) {
    auto view = shownView(c.width, c.height);
    fillLattice(*view, 5, c.imax, c.jmax, scatteredTypes(5));
    EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), opaqueFrame(*view, c.width, c.height)))
        << c.imax << " sites over " << c.width << " points";
  }
}

TEST(Frame, RepeatsTheBottomRowsAboveTheTopOfALowLattice) {
  auto view = shownView(100, 175);
  fillLattice(*view, 4, 10, 5, [](int i, int j) { return 1 + (i + j) % 3; });
  const QImage frame = gui::frameOf(*view);
  for (int x = 5; x < 100; x += 10)
    for (int y = 5; y < 175; y += 10)
      ASSERT_EQ(colorAt(frame, x, y), paletteColor(view->getSiteValue(x / 10, (y / 10) % 5)))
          << x << ", " << y;
}

TEST(Frame, CutsOffTheRowsOfALatticeThatIsTallerThanTheView) {
  auto view = shownView(100, 45);
  fillLattice(*view, 4, 10, 20, [](int, int j) { return 1 + j % 3; });
  EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), opaqueFrame(*view, 100, 45)));
  EXPECT_EQ(view->varSiteSpacing, 10.0);
}

TEST(Frame, ReadsTheSizeOfTheViewAtEveryDrawing) {
  auto view = shownView(300, 200);
  fillLattice(*view, 2, 30, 30, scatteredTypes(2));
  gui::frameOf(*view);
  EXPECT_EQ(view->getWidth(), 300.0);
  EXPECT_EQ(view->getHeight(), 200.0);
  EXPECT_EQ(view->varSiteSpacing, 10.0);
  view->resize(150, 400);
  ASSERT_TRUE(gui::waitUntil([&] { return view->getWidth() == 150.0; }));
  EXPECT_EQ(view->getHeight(), 400.0);
  EXPECT_EQ(view->varSiteSpacing, 5.0);
}

TEST(Frame, FillsTheViewAfterAResize) {
  auto view = shownView(200, 200);
  fillLattice(*view, 4, 20, 20, scatteredTypes(4));
  for (const QSize size : {QSize(400, 300), QSize(160, 90), QSize(333, 517)}) {
    view->resize(size);
    ASSERT_TRUE(gui::waitUntil([&] { return view->getWidth() == size.width() && view->size() == size; }));
    EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), opaqueFrame(*view, size.width(), size.height())));
  }
}

TEST(Frame, IsShownOnTheScreen) {
  auto view = shownView(200, 200);
  fillLattice(*view, 4, 20, 20, scatteredTypes(4));
  scatterTraces(*view, 3);
  const QImage frame = gui::frameOf(*view);
  EXPECT_TRUE(gui::waitUntil([&] { return bool(gui::samePixels(gui::screenOf(*view), frame)); }))
      << gui::samePixels(gui::screenOf(*view), frame).message();
}

class FrameOfTraces : public ::testing::TestWithParam<std::tuple<int, int, int, int>> {};

TEST_P(FrameOfTraces, EqualsTheOneWithEveryRectangleDrawn) {
  const auto [width, height, sites, types] = GetParam();
  auto view = shownView(width, height);
  auto literal = shownView<LiteralView>(width, height);
  for (LatticeModel* model :
       {static_cast<LatticeModel*>(view.get()), static_cast<LatticeModel*>(literal.get())}) {
    fillLattice(*model, types, sites, sites, scatteredTypes(types));
    scatterTraces(*model, static_cast<unsigned>(width + sites));
  }
  EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), gui::frameOf(*literal)));
}

INSTANTIATE_TEST_SUITE_P(Spacings, FrameOfTraces,
                         ::testing::Values(std::tuple(200, 200, 20, 10), std::tuple(512, 300, 64, 3),
                                           std::tuple(444, 566, 100, 4), std::tuple(444, 566, 254, 10),
                                           std::tuple(171, 300, 20, 2), std::tuple(301, 207, 256, 5),
                                           std::tuple(64, 64, 1, 10), std::tuple(97, 203, 2, 6)));

/// The largest and smallest alphas that count as something else than those next to them, and some others.
std::vector<double> alphasAtLimits() {
  std::vector<double> alphas{0.0, 1e-40, 1e-6,  0.5,
                             2.0, -1.0,  -1e-6, std::numeric_limits<double>::infinity()};
  for (const double limit : {1.0 / 512.0, 1.0 / 510.0, 1.0 - 1.0 / 510.0, 1.0 - 1.0 / 512.0, 1.0}) {
    const auto single = static_cast<float>(limit);
    for (const float alpha : {std::nextafter(single, 0.0f), single, std::nextafter(single, 2.0f)})
      alphas.push_back(alpha);
    alphas.push_back(0.995 * limit);
    alphas.push_back(1.005 * limit);
  }
  return alphas;
}

/// Gives every type of every site one of the alphas at limits.
void scatterAlphasAtLimits(LatticeModel& model, unsigned seed) {
  const std::vector<double> alphas = alphasAtLimits();
  std::mt19937 random(seed);
  std::uniform_int_distribution<std::size_t> any(0, alphas.size() - 1);
  std::uniform_real_distribution<double> component(-0.1, 1.1);
  for (int type = 0; type < model.varNumSiteTypes; ++type) {
    model.setPixelColor(type, component(random), component(random), component(random));
    for (int i = 0; i < model.varImax; ++i)
      for (int j = 0; j < model.varJmax; ++j) model.varMobileHistory[type][i][j] = alphas[any(random)];
  }
}

TEST_P(FrameOfTraces, AtTheLimitsOfWhatIsSeenEqualsTheOneWithEveryRectangleDrawn) {
  const auto [width, height, sites, types] = GetParam();
  auto view = shownView(width, height);
  auto literal = shownView<LiteralView>(width, height);
  for (const unsigned seed : {1u, 2u, 3u}) {
    for (LatticeModel* model :
         {static_cast<LatticeModel*>(view.get()), static_cast<LatticeModel*>(literal.get())}) {
      fillLattice(*model, types, sites, sites, scatteredTypes(types));
      scatterAlphasAtLimits(*model, seed);
    }
    EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), gui::frameOf(*literal)));
  }
}

TEST_P(FrameOfTraces, OfPersistentTypesEqualsTheOneWithEveryRectangleDrawn) {
  const auto [width, height, sites, types] = GetParam();
  auto view = shownView(width, height);
  auto literal = shownView<LiteralView>(width, height);
  fillLattice(*view, types, sites, sites, scatteredTypes(types));
  for (int type = 0; type < types; ++type) view->setPixelPersistence(type, 0.9);
  view->makeNewRule("mix", kSwap, kAnyPixelType, kAnyPixelType);
  view->setRuleParam(0, 0.05);
  view->runSweeps(80);
  copyPicture(*view, *literal);
  EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), gui::frameOf(*literal)));
}

/// Counts the rectangles that a frame submits, seen or not. What lies beyond the edge, and what is wholly
/// transparent, changes no pixel, so nothing but the count tells whether it is drawn.
class CountingView : public GraphicalLatticeModelGL {
 public:
  GLuint rectangles() {
    gui::frameOf(*this);
    return frame_ / perRectangle_;
  }

 protected:
  void paintGL() override {
    frame_ = primitivesOf([this] { GraphicalLatticeModelGL::paintGL(); });
    perRectangle_ = primitivesOf([] {
      QOpenGLFunctions_2_1 gl;
      gl.initializeOpenGLFunctions();
      gl.glColor4f(0, 0, 0, 0);
      gl.glRectd(0, 0, 1, 1);
    });
  }

 private:
  template <class Drawing>
  static GLuint primitivesOf(const Drawing& drawing) {
    QOpenGLExtraFunctions& gl = *QOpenGLContext::currentContext()->extraFunctions();
    GLuint query = 0, primitives = 0;
    gl.glGenQueries(1, &query);
    gl.glBeginQuery(GL_PRIMITIVES_GENERATED, query);
    drawing();
    gl.glEndQuery(GL_PRIMITIVES_GENERATED);
    gl.glGetQueryObjectuiv(query, GL_QUERY_RESULT, &primitives);
    gl.glDeleteQueries(1, &query);
    return primitives;
  }

  GLuint frame_ = 0, perRectangle_ = 1;
};

TEST(Frame, DrawsAnExtraWrappedColumnAndRowAtTheFarEdgesWithoutGaps) {
  auto view = shownView<CountingView>(160, 160);
  fillLattice(*view, 1, 40, 40, [](int, int) { return 0; });
  EXPECT_EQ(view->rectangles(), 41u * 41u);
}

TEST(Frame, DrawsNoExtraColumnWithGaps) {
  auto view = shownView<CountingView>(160, 165);
  fillLattice(*view, 1, 16, 16, [](int, int) { return 0; });
  EXPECT_EQ(view->rectangles(), 16u * 17u);
}

TEST(Frame, LeavesOutRectanglesThatAreWhollyTransparent) {
  auto view = shownView<CountingView>(160, 160);
  fillLattice(*view, 3, 16, 16, scatteredTypes(3));
  EXPECT_EQ(view->rectangles(), 16u * 16u);
}

TEST(Frame, LeavesOutRectanglesThatAreTooFaintToChangeAPixel) {
  auto view = shownView<CountingView>(160, 160);
  fillLattice(*view, 3, 16, 16, [](int, int) { return 0; });
  view->varMobileHistory[1][2][3] = 1.0 / 512.0;
  EXPECT_EQ(view->rectangles(), 16u * 16u + 1u);
  view->varMobileHistory[1][2][3] = 0.99 / 512.0;
  EXPECT_EQ(view->rectangles(), 16u * 16u);
}

TEST(Frame, OfAnEmptyViewOrAModelWithoutSitesIsHarmless) {
  auto view = shownView(100, 100);
  view->varMyState = kStopped;
  EXPECT_EQ(colorAt(gui::frameOf(*view), 50, 50), QColor(Qt::black));
  fillLattice(*view, 2, 10, 10, scatteredTypes(2));
  view->makeCurrent();
  view->resize(0, 0);
  int frames = 0;
  QObject::connect(view.get(), &GraphicalLatticeModelGL::frameDrawn, [&] { ++frames; });
  view->makeCurrent();
  view->drawRect();
  EXPECT_EQ(frames, 1);
}

}  // namespace
}  // namespace quorvane
