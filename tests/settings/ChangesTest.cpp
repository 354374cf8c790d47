#include <limits>

#include "SettingsTest.h"
#include "settings/Changes.h"

namespace quorvane {
namespace {

TEST(Change, OfATypeIsWithinTheRangeOfItsControl) {
  const auto model = namedModel();
  setPersistence(*model, 1, 0.25);
  setOpacity(*model, 1, 1.0);
  setColor(*model, 1, {0.0, 0.5, 1.0});
  setField(*model, 1, -10.0);
  setMasquerade(*model, 1, 2);
  EXPECT_EQ(model->getPixelPersistence(1), 0.25);
  EXPECT_EQ(model->getPixelAlpha(1), 1.0);
  EXPECT_EQ(model->getPixelColorG(1), 0.5);
  EXPECT_EQ(model->getPixelField(1), -10.0);
  EXPECT_EQ(model->getPixelMasqueradeAs(1), 2);
  setMasquerade(*model, 1, kNoMasquerade);
  EXPECT_EQ(model->getPixelMasqueradeAs(1), kNoMasquerade);

  EXPECT_EQ(errorOf([&] { setPersistence(*model, 1, 1.5); }), "1.5 is not from 0 to 1");
  EXPECT_EQ(errorOf([&] { setOpacity(*model, 1, -0.5); }), "-0.5 is not from 0 to 1");
  EXPECT_EQ(errorOf([&] { setColor(*model, 1, {1.0, 0.0, 2.0}); }), "2 is not from 0 to 1");
  EXPECT_EQ(errorOf([&] { setField(*model, 1, std::numeric_limits<double>::quiet_NaN()); }),
            "nan is not from -10 to 10");
  EXPECT_EQ(errorOf([&] { setMasquerade(*model, 1, 1); }), "a type cannot masquerade as itself");
  EXPECT_EQ(errorOf([&] { setMasquerade(*model, 1, 3); }), "3 is no pixel type; there are 0 to 2");
  EXPECT_EQ(errorOf([&] { setMasquerade(*model, 1, -2); }), "-2 is no pixel type; there are 0 to 2");
  EXPECT_EQ(model->getPixelColorR(1), 0.0) << "a color that does not fit changes nothing";
}

TEST(Change, OfARuleFitsItsKind) {
  const auto model = namedModel();
  setFacilitation(*model, 0, 8);
  setFacilitatingType(*model, 0, kAnyPixelType);
  setFacilitatingType(*model, 1, 2);
  setParameter(*model, 3, -10.0);
  EXPECT_EQ(model->getRuleFacNum(0), 8);
  EXPECT_EQ(model->getRuleFacPixel(0), kAnyPixelType);
  EXPECT_EQ(model->getRuleFacPixel(1), 2);
  EXPECT_EQ(model->getPixelIntConstant(2, 1), -10.0);

  EXPECT_EQ(errorOf([&] { setParameter(*model, 0, -1.0); }), "-1 is not from 0 to 1");
  EXPECT_EQ(errorOf([&] { setFacilitation(*model, 0, 9); }), "9 is not from 0 to 8");
  EXPECT_EQ(errorOf([&] { setFacilitation(*model, 2, 1); }), "only a flip can be facilitated");
  EXPECT_EQ(errorOf([&] { setFacilitatingType(*model, 0, 3); }), "3 is no pixel type; there are 0 to 2");
  EXPECT_EQ(errorOf([&] { requireParameter(7, 0.5); }), "the rule is of no known kind");
  EXPECT_EQ(errorOf([&] { requireFacilitation(7, 1); }), "only a flip can be facilitated");
}

TEST(Change, ANameIsPrintableAsciiThatADocumentCanHold) {
  EXPECT_EQ(errorOf([] { requireName(""); }), "");
  EXPECT_EQ(errorOf([] { requireName(" Bare ~ ground"); }), "");
  EXPECT_EQ(errorOf([] { requireName(std::string(10'000, 'x')); }), "");
  EXPECT_EQ(errorOf([] { requireName(std::string(10'001, 'x')); }),
            "a name has at most 10000 characters, not 10001");
  for (const char* name : {"a\nb", "\t", "\x7f", "\xc3\xa9"})
    EXPECT_EQ(errorOf([&] { requireName(name); }), "a name has printable ASCII characters only");
}

}  // namespace
}  // namespace quorvane
