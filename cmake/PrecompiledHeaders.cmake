# Headers of others that many sources include, compiled once a kind of target: most of the time that a
# source takes to compile is theirs. Sources still include what they use: the presets dev and fuzz
# compile without precompiled headers and fail where an include is missing.

set(VIREO_STANDARD_HEADERS
  <algorithm> <array> <cmath> <cstddef> <cstdint> <cstring> <filesystem> <functional> <limits>
  <memory> <numeric> <optional> <span> <string> <string_view> <system_error> <utility> <vector>)
set(VIREO_QT_HEADERS
  <QAction> <QApplication> <QColor> <QDialog> <QImage> <QKeyEvent> <QLabel> <QMenu> <QPainter>
  <QPushButton> <QRectF> <QString> <QTimer> <QWidget>)

# share_precompiled_headers(LIBRARY TARGET...): the targets use those of a library that is compiled
# with the same flags.
function(share_precompiled_headers LIBRARY)
  foreach(target IN LISTS ARGN)
    target_precompile_headers(${target} REUSE_FROM ${LIBRARY})
  endforeach()
endfunction()
