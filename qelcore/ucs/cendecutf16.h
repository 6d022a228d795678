/// \class qucs::cEnDecUTF16
/// The UTF-16 endec ("Endec-UTF16") with a configurable byte order and byte
/// order mark.
///
/// Decoding needs to know the byte order: either from the flags (FlagLittleEndian
/// or FlagBigEndian without FlagByteOrderMark) or from a mark at the start of
/// the data, which is then mandatory. Decoding 16-bit units from an array is not
/// supported (decodeCString reads them from a zero-terminated buffer).
#ifndef QELCORE_UCS_CENDECUTF16_H
#define QELCORE_UCS_CENDECUTF16_H

#include "qelcore/ucs/cabstractendec.h"

namespace qucs {

class QEL_EXPORT cEnDecUTF16 : public cAbstractEnDec {
public:
  /// The byte order of the encoding, or-ed into the constructor's flags.
  enum Flags {
    /// The byte order is known in advance to be little-endian.
    FlagLittleEndian = 1,
    /// Encoding writes big-endian; decoding knows the order in advance to be big-endian.
    FlagBigEndian = 2,
    /// Encoding writes a mark first; decoding takes the order from the mark
    /// and ignores the other two flags.
    FlagByteOrderMark = 4
  };

  /// With Flags; 0: little-endian without mark.
  explicit cEnDecUTF16(unsigned int flags);

  /// The flags given.
  unsigned int flags() const { return miFlags; }

  qstd::cAsciiString name() const override;
  using cAbstractEnDec::decode;
  using cAbstractEnDec::encodeCString;
  /// Units in the machine's order, each swapped with FlagBigEndian; the mark is
  /// the unit 0xFEFF (0xFFFE when swapped).
  void encode(const cString& text, qstd::tArray<unsigned short>& out) const override;
  void encode(const cString& text, qstd::tArray<char>& out) const override;
  void decode(const qstd::tConstArrayRef<char>& bytes, cString& out) const override;

  ///@{
  /// Units from and to memory the caller owns, in the same order as the unit
  /// forms above: the machine's, swapped with FlagBigEndian. Encoding returns
  /// the number of units of the encoding (the mark included); when that is
  /// more than `size`, nothing is written and the caller can try again with
  /// that much room. Decoding reads `count` units (a mark first when the
  /// flags ask for one) without copying them.
  unsigned int encode(const unsigned int* chars, unsigned int count, unsigned short* buffer, unsigned int size) const;
  void decodeUnits(const unsigned short* units, unsigned int count, cString& out) const;
  ///@}

  /// The 16-bit encoding followed by one zero unit.
  virtual void encodeCString(const cString& text, qstd::tArray<unsigned short>& out) const;
  /// Decodes zero-terminated units: a leading 0xFEFF means the machine's order,
  /// 0xFFFE the swapped order; without a mark the flags must know the order.
  virtual void decodeCString(const unsigned short* units, cString& out) const;

private:
  unsigned int miFlags;
};

}  // namespace qucs

#endif
