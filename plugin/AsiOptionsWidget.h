#pragma once
// The options form of an ASI open: one check box that asks for an append.
// Kept as the form of the "append" choice; the load path does not show it,
// since the open delegate asks the host for no options page.

#include <memory>

#include <QWidget>

class QCheckBox;

namespace Ui {
class AsiOpenOptions;
}

class AsiOptionsWidget : public QWidget {
 public:
  explicit AsiOptionsWidget(QWidget* parent = nullptr);
  ~AsiOptionsWidget() override;

  bool isAppend() const;
  QCheckBox* appendCheckBox() const;

 private:
  std::unique_ptr<Ui::AsiOpenOptions> ui_;
};
