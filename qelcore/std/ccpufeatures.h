/// \class qstd::cCpuFeatures
/// The vector units that the library's bulk conversions (the UTF-8 and
/// UTF-16 endecs) may use. They are chosen at run time from what the
/// processor has, so one build runs everywhere; every vector path has a
/// portable loop beside it that gives exactly the same results.
///
/// Switching the vector units off makes every conversion take its portable
/// loop, to compare the two or to test that loop on a processor that has the
/// units:
///
/// \code
///   qstd::cCpuFeatures::setVectorUnitsEnabled(false);
///   ... conversions on the portable loops ...
///   qstd::cCpuFeatures::setVectorUnitsEnabled(true);
/// \endcode
#ifndef QELCORE_STD_CCPUFEATURES_H
#define QELCORE_STD_CCPUFEATURES_H

#include "qelcore/qelexport.h"

namespace qstd {

class QEL_EXPORT cCpuFeatures {
public:
  /// True when the processor has AVX2 and the vector units are enabled.
  static bool avx2();
  /// Enabled by default. Takes effect for conversions started afterwards.
  static void setVectorUnitsEnabled(bool enabled);
  /// See setVectorUnitsEnabled().
  static bool vectorUnitsEnabled();
};

}  // namespace qstd

#endif
