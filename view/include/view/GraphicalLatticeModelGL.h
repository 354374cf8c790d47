#pragma once

#include <QOpenGLWidget>
#include <QPointer>
#include <QSurfaceFormat>
#include <QTimer>
#include <atomic>
#include <limits>
#include <memory>

#include "model/LatticeModel.h"
#include "view/FramePacer.h"

class QOpenGLFramebufferObjectFormat;
class QOpenGLFunctions_2_1;

namespace quorvane {

class FrameInSlices;
class LatticeDrawing;

/// The model and its view in one object: draws the display trace, handles painting and the two keys of full
/// screen. Coordinates are in points (device-independent pixels), x from the left and y from the bottom.
/// Main thread only, except where LatticeModel says otherwise.
class GraphicalLatticeModelGL : public QOpenGLWidget, public LatticeModel {
  Q_OBJECT

 public:
  /// Sets the start values of awakeFromNib.
  explicit GraphicalLatticeModelGL(QWidget* parent = nullptr);
  /// Ends the run loops, which call the view, before any part of it is destroyed.
  ~GraphicalLatticeModelGL() override;

  /// The surface format that drawing needs: desktop OpenGL 2.1. Set it as the default format before the
  /// application object is created.
  static QSurfaceFormat surfaceFormat();
  /// True if a context of surfaceFormat can be created on this machine. Needs the application object.
  static bool canDraw();

  /// True: the view receives key events.
  bool acceptsFirstResponder() const;
  /// Starts to follow the size of the window that contains the view. Called when the view is shown in another
  /// window than before; a view that is a window itself follows none.
  void viewDidMoveToWindow();
  /// Places the view inside its window: 11 points free on the left, 205 below, 545 on the right, 29 on top.
  /// A window too small for that leaves a view of width or height 0. No effect while the view fills the
  /// screen or is a window itself.
  void windowResized();
  /// The geometry that windowResized gives the view in its parent, also during full screen. Needs a parent.
  QRect placeInWindow() const;
  /// Sets the viewport to the view's bounds in device pixels. Makes the view's context current; no effect
  /// while there is none.
  void reshape();
  /// Draws a frame into the current context and sets varMyWidth, varMyHeight and varSiteSpacing from the
  /// view's size. Without a lattice, or with an empty view, the frame is black. No effect, and no frameDrawn,
  /// unless a context of desktop OpenGL 2.1 is current.
  void drawRect();

  /// Starts a paint stroke at a point, unless there is no model yet.
  void mouseDown(double x, double y);
  /// Paints the site at a point during a stroke. Points beyond the right or upper edge count as 1 point
  /// inside it, points beyond the others as on them. Paints nothing if the point is not on a site of the
  /// lattice, before the first frame, or if the brush is not 0 to 9.
  void mouseDragged(double x, double y);
  /// Ends a stroke, and resumes the run that it paused.
  void mouseUp();
  /// Handles 49 (space: run or stop) and 53 (Escape: stop and leave) in full screen; ignores any other key.
  void keyDown(int keyCode);

  /// Makes the view fill the primary screen and gives it the focus. The caller calls setFullScreen. A view
  /// that fills the screen already, perhaps behind another window, is raised.
  void enterFullScreenMode();
  /// Puts the view back into its window. No effect, and no fullScreenLeft, unless it fills the screen.
  void exitFullScreenMode();

 signals:
  /// A frame has been drawn, on the main thread.
  void frameDrawn();
  /// The view fills the screen.
  void fullScreenEntered();
  /// The lattice was replaced or filled again.
  void latticeRenewed();
  /// The view is back in its window.
  void fullScreenLeft();

 protected:
  /// Has a whole frame drawn at once, instead of one that is drawn in slices.
  void requestRedraw() override;
  void latticeReplaced() override;
  /// Posts one redraw to the main thread, where it waits for as long as the last frame took; requests made
  /// before that are merged into it. The frame is drawn in slices between events and shown when it is whole.
  void requestRedrawFromRunLoop() override;

  /// Called for each new context of the view.
  void initializeGL() override;
  void paintGL() override;
  void resizeGL(int width, int height) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The functions of the current context; null unless it is desktop OpenGL 2.1.
  static QOpenGLFunctions_2_1* currentFunctions();
  QOpenGLFramebufferObjectFormat framebufferFormat() const;
  QSize pixels() const;
  void setViewport(QOpenGLFunctions_2_1& gl) const;
  /// Draws the background, and prepares the current framebuffer for the sites.
  LatticeDrawing beginFrame(QOpenGLFunctions_2_1& gl);
  void endFrame(QOpenGLFunctions_2_1& gl);

  bool isOnScreen() const;
  void awaitTurn();
  /// Draws the next slice of a run's frame, begins one if requested, and shows it when it is whole.
  void takeTurn();
  /// False if the view cannot draw in slices, or not now.
  bool drawSlice();
  void showRunFrame();

  void paintSite(int i, int j);
  QPointF viewPoint(const QMouseEvent& event) const;
  void startRun();
  void becomeWindow();
  void stopAndLeaveFullScreen();

  std::atomic<bool> redrawPending_{false};
  FramePacer pacer_;
  QTimer turn_;
  std::unique_ptr<FrameInSlices> runFrame_;
  bool showsRunFrame_ = false;
  /// Rectangles below it are left out: until the context has been tried only those of alpha 0.
  float smallestVisibleAlpha_ = std::numeric_limits<float>::denorm_min();
  QPointer<QWidget> followedWindow_;
  bool fillsScreen_ = false;
  QRect geometryInWindow_;
  QPointer<QWidget> predecessorInTabOrder_;
};

}  // namespace quorvane
