// What the main window shows while no report is open: the frame `fraWelcome` with its three buttons.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <QWidget>

class QLabel;

namespace tallmar {

class WelcomePanel : public QWidget {
    Q_OBJECT

  public:
    explicit WelcomePanel(QWidget* parent = nullptr);

  signals:
    void New_Requested();
    void Open_Requested();
    void Exit_Requested();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void Draw_Logo();

    QGroupBox* fraWelcome_;
    QLabel* logo_;
};

}  // namespace tallmar
