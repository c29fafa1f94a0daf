// Closes the whole program to input while a job runs. What is keyed or clicked meanwhile is thrown away and reaches no
// window later; painting, timers and progress go on. A box that a job shows suspends the guard.
// An entry whose first keys came during the job is thrown away whole: its tail would be stored as another number.
#pragma once

#include <QObject>
#include <optional>

class QKeyEvent;

namespace tallmar {

class JobGuard : public QObject {
    Q_OBJECT

  public:
    explicit JobGuard(QObject* parent = nullptr);
    ~JobGuard() override;

    bool Is_On() const { return on_; }
    // On a second time changes nothing. Switching it off first throws away what the user did during the job.
    void Turn_On();
    void Turn_Off();

    // Lets input through during its life.
    class Pause {
      public:
        explicit Pause(JobGuard& guard);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        JobGuard& guard_;
    };

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool Throws_Away(const QEvent& event);
    // `key` is null where the event is no key.
    bool Throws_Away_During_Job(const QEvent& event, const QKeyEvent* key);
    bool Throws_Away_After_Job(const QKeyEvent* key);

    bool on_ = false;
    int pauses_ = 0;
    std::optional<quint64> cutEntry_;  // the time of the last character that was thrown away, while its entry goes on
};

}  // namespace tallmar
