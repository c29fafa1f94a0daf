// The places that the program gave its worksheet windows, to tell them from those that the person chose: only
// these are remembered.
#pragma once

#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QObject>
#include <QRect>

namespace tallmar {

class GivenPlaces : public QObject {
    Q_OBJECT

  public:
    explicit GivenPlaces(QMdiArea* area);

    // The window is where the program put it.
    void Note(QMdiSubWindow& window);
    void Note_All();
    // It was given a place before.
    bool Is_Known(const QMdiSubWindow& window) const { return given_.contains(&window); }
    // The person moved it, or changed its size, since then.
    bool Is_Moved(const QMdiSubWindow& window) const;
    bool Is_Sized(const QMdiSubWindow& window) const;

  protected:
    // Tiled windows follow the area as it grows and shrinks.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QMdiArea* area_;
    QWidget* viewport_;
    QHash<const QObject*, QRect> given_;
};

}  // namespace tallmar
