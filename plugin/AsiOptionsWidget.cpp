#include "plugin/AsiOptionsWidget.h"

#include <QCheckBox>

#include "ui_AsiOpenOptions.h"

AsiOptionsWidget::AsiOptionsWidget(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::AsiOpenOptions>()) {
  ui_->setupUi(this);
}

AsiOptionsWidget::~AsiOptionsWidget() = default;

bool AsiOptionsWidget::isAppend() const { return ui_->appendCheckBox->isChecked(); }

QCheckBox* AsiOptionsWidget::appendCheckBox() const { return ui_->appendCheckBox; }
