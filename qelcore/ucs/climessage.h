/// \class qucs::cLIMessage
/// A localizable message: an ASCII template (the key) with %name% placeholders
/// plus the values bound to them, rendered untranslated or through a
/// translated template that may use the placeholders in any order.
///
/// \code
///   cLIMessage() << "$QTR$File %file% exists!" << fileName;
/// \endcode
///
/// The first ASCII text given to an empty message becomes the template; every
/// later value is bound to the next placeholder of the template. A template
/// beginning with "$QTR$" is translatable, one beginning with "$QNTR$" is not;
/// the marker is not part of the key.
///
/// Rendering takes time linear in the text and the values it takes in,
/// however many placeholders and values a message has.
#ifndef QELCORE_UCS_CLIMESSAGE_H
#define QELCORE_UCS_CLIMESSAGE_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
class cNumberConversionFormat;
}  // namespace qstd

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qucs {

class cString;

class QEL_EXPORT cLIMessage {
public:
  /// What a bound value was before it became text.
  enum ParamKind { ParamText = 0, ParamInteger = 1, ParamDouble = 2 };
  /// Limits of a message loaded from an archive (see operator<<).
  enum : unsigned int { MaxLoadedKeyLength = 16384, MaxLoadedPlaceholders = 64, MaxLoadedValueLength = 16384 };

  cLIMessage();
  ///@{
  /// With the template `tmpl` and no values yet.
  explicit cLIMessage(const qstd::cAsciiString& tmpl);
  explicit cLIMessage(const char* tmpl);
  ///@}
  ///@{
  /// Copies the template, the values and the format.
  cLIMessage(const cLIMessage& other);
  cLIMessage& operator=(const cLIMessage& other);
  ///@}
  virtual ~cLIMessage();
  /// Exchanges two messages.
  void swap(cLIMessage& other);

  ///@{
  /// The template while the key is empty, a text value afterwards.
  cLIMessage& operator<<(const char* text);
  cLIMessage& operator<<(const qstd::cAsciiString& text);
  ///@}
  ///@{
  /// Always a text value.
  cLIMessage& operator<<(const cString& text);
  cLIMessage& operator<<(int value);
  cLIMessage& operator<<(unsigned int value);
  cLIMessage& operator<<(long value);
  cLIMessage& operator<<(unsigned long value);
  cLIMessage& operator<<(long long value);
  cLIMessage& operator<<(unsigned long long value);
  cLIMessage& operator<<(double value);
  ///@}
  /// Numbers added after this use (a copy of) the format.
  cLIMessage& operator<<(const qstd::cNumberConversionFormat& format);
  /// Null until a format was given.
  const qstd::cNumberConversionFormat* numberConversionFormat() const;

  /// The template with its marker ("$QTR$" or "$QNTR$") removed.
  const qstd::cAsciiString& key() const;
  /// Whether the template began with "$QTR$".
  bool isTranslatable() const;
  /// Where the next value is bound in the key.
  unsigned int scanPosition() const;

  /// The bound values, in binding order.
  unsigned int paramCount() const;
  ///@{
  /// The placeholder name, text and kind of the value at `i`.
  const qstd::cAsciiString& paramName(unsigned int i) const;
  const cString& paramValue(unsigned int i) const;
  ParamKind paramKind(unsigned int i) const;
  ///@}

  ///@{
  /// The key with every placeholder replaced ("???" when unbound).
  void untranslated(cString& out) const;
  void untranslated(qstd::cAsciiString& out) const;
  ///@}
  /// Renders `translation` with this message's values; a message that is not
  /// translatable renders its key instead.
  void translate(const cString& translation, cString& out) const;

  ///@{
  /// Archived inside one context: key, scan position, translatable flag, the
  /// number of values, then name, value and kind of each. The number format
  /// is not archived. Loading changes the message only when all was read.
  ///
  /// Messages arrive from other processes (in remote exceptions), so a loaded
  /// message is held to what this library's messages need: a key of at most
  /// MaxLoadedKeyLength bytes with at most MaxLoadedPlaceholders placeholders,
  /// no more values than placeholders, each value (and name) of at most
  /// MaxLoadedValueLength (MaxLoadedKeyLength) characters. Anything larger is
  /// refused with the out-of-range exception; rendered, a loaded message is
  /// thus at most about a million characters.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);
  ///@}

  ///@{
  /// Rebuilds a message from archived parts (for the archive operators).
  void restore(const qstd::cAsciiString& key, unsigned int scanPosition, bool translatable);
  void addParam(const qstd::cAsciiString& name, const cString& value, ParamKind kind);
  ///@}

private:
  class cLIMessageImpl;
  cLIMessageImpl* mpImpl;
};

}  // namespace qucs

#endif
