// The append form, built offscreen.
#include "plugin/AsiOptionsWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>

#include <cstdlib>

namespace {

QApplication& application() {
  static int argc = 1;
  static char name[] = "test";
  static char* argv[] = {name, nullptr};
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  static QApplication app(argc, argv);
  return app;
}

TEST(AsiOptionsWidget, FormAsDesigned) {
  application();
  AsiOptionsWidget form;
  EXPECT_EQ(form.windowTitle(), "Form");
  EXPECT_EQ(form.size(), QSize(184, 35));
  QCheckBox* box = form.appendCheckBox();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->objectName(), "appendCheckBox");
  EXPECT_EQ(box->text(), "Append with existing scenario");
  EXPECT_EQ(box->toolTip(), "Add an ASI file to the existing scenario.");
  auto* layout = qobject_cast<QHBoxLayout*>(form.layout());
  ASSERT_NE(layout, nullptr);
  EXPECT_EQ(layout->objectName(), "horizontalLayout_2");
  EXPECT_EQ(layout->indexOf(box), 0);
}

TEST(AsiOptionsWidget, IsAppendFollowsTheCheckBox) {
  application();
  AsiOptionsWidget form;
  EXPECT_FALSE(form.isAppend());
  form.appendCheckBox()->click();
  EXPECT_TRUE(form.isAppend());
  form.appendCheckBox()->setChecked(false);
  EXPECT_FALSE(form.isAppend());
}

}  // namespace
