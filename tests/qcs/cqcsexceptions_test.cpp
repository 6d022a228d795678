#include "qelcore/qcs/cqcsexceptions.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qcs/cmoduleloadexception.h"
#include "qelcore/qcs/cnopublicinterfaceexception.h"
#include "qelcore/qcs/cnosuchmoduleexception.h"
#include "qelcore/qcs/cqcsexceptionfactory.h"
#include "qelcore/qcs/crmiexception.h"
#include "qelcore/qcs/cunmatchedinterfaceexception.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

#include "qcstestutil.h"

using qcs::cComponentAddr;
using qcs::cComponentLocation;
using qcs::cQCSExceptions;
using qcs::cRMIException;
using qcstest::textOf;
using qcstest::thrown;
using qstd::cAsciiString;

TEST(ComponentExceptions, ThrowFunctionsUseTheirExactTextsAndClasses) {
  qstd::cRuntimeException cause(qucs::cLIMessage("$QTR$why"), "x.cpp", 1);
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { cQCSExceptions::throwNoSuchInterface("Clock", &cause); }),
            "No such interface (\"Clock\")! / why");
  EXPECT_EQ(thrown<qstd::cRuntimeException>([] { cQCSExceptions::throwComponentIdNotUnique(7); }),
            "Component id (7) not unique!");
  EXPECT_EQ(thrown<qstd::cRuntimeException>([] { cQCSExceptions::throwInterfaceLoadError("Clock"); }),
            "Unable to deserialize interface description of \"Clock\"!");
  EXPECT_EQ(thrown<qstd::cRuntimeException>([] { cQCSExceptions::throwNoCoreExtension(qucs::cString("ext.so")); }),
            "Module (\"ext.so\") does not provide core extension functionality.");
  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>([] { cQCSExceptions::throwNoSuchModule(cComponentAddr(1, 7)); }),
            "Module (1:7) not found!");
  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>(
                [] { cQCSExceptions::throwNoSuchModule(cComponentLocation(cComponentAddr(1, 7), "h", "x", 9)); }),
            "Module (1:7-9@h:x) not found!");
  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>([] { cQCSExceptions::throwNoSuchModule(cAsciiString("m.so")); }),
            "Module (m.so) not found!");
  qrmi::cConnectable object;
  EXPECT_EQ(thrown<qcs::cNoPublicInterfaceException>([&] { cQCSExceptions::throwNoPublicInterface(object); }),
            "No public interface!");
  EXPECT_EQ(thrown<qcs::cUnmatchedInterfaceException>([] { cQCSExceptions::throwUnmatchedInterface(); }),
            "Unmatched interface!");

  try {
    cQCSExceptions::throwNoSuchModule(cComponentAddr(1, 7));
  } catch (const qcs::cNoSuchModuleException& e) {
    EXPECT_EQ(e.address(), cComponentAddr(1, 7));
    EXPECT_NE(std::string(e.sourceFileName()).find("cqcsexceptions_test"), std::string::npos);  // the caller's
  }
}

TEST(ComponentExceptions, EveryClassIsRebuiltByItsTypeName) {
  qcs::cQCSExceptionFactory factory;
  for (const char* name : {"cNoSuchModuleException", "cNoPublicInterfaceException", "cUnmatchedInterfaceException",
                           "cModuleLoadException", "cRMIException"}) {
    SCOPED_TRACE(name);
    qstd::tAutoPtr<qstd::cAbstractException> e(factory.createException(name));
    ASSERT_NE(e.get(), nullptr);
    EXPECT_EQ(e->typeName(), cAsciiString(name));
    EXPECT_EQ(e->type(), qstd::cAbstractException::TypeRuntime);
  }
  EXPECT_EQ(factory.createException("cRuntimeException"), nullptr);

  // A chain crosses an archive with its classes and messages.
  qcs::cNoSuchModuleException outer(cComponentAddr(1, 7), "a.cpp", 1);
  outer.link(qcs::cModuleLoadException(qcs::cModuleLoadException::eInvalidModule, qucs::cString("m.so"),
                                       qucs::cLIMessage("$QTR$Invalid module. Missing qelVersion section!"), "b.cpp",
                                       2));
  qsa::cSerializeBinary s;
  outer.storeRecursive(s);
  qsa::cDeserializeBinary d(s.ownData());
  qstd::tAutoPtr<qstd::cAbstractException> back = qstd::cAbstractException::createFromStream(d, factory);
  EXPECT_EQ(back->typeName(), cAsciiString("cNoSuchModuleException"));
  EXPECT_EQ(qcstest::chainOf(*back), "Module (1:7) not found! / Invalid module. Missing qelVersion section!");
  EXPECT_EQ(back->history()->typeName(), cAsciiString("cModuleLoadException"));
}

TEST(RMIException, TheFormChosenNamesEitherTheInterfaceIndexOrTheKey) {
  const cComponentLocation remote(cComponentAddr(1, 7), "far", "", 77);
  cRMIException call(remote, 2, cRMIException::eCallSlot, "now");
  EXPECT_EQ(textOf(call), "Unable to call slot \"now\" on interface 2!");
  EXPECT_EQ(call.location(), remote);
  EXPECT_EQ(call.interfaceKey(), 0u);
  cRMIException connect(remote, 3, cRMIException::eConnectSignal, "tick");
  EXPECT_EQ(textOf(connect), "Unable to connect signal \"tick\" to interface 3!");

  cRMIException byKey(42, cRMIException::eCallSlot, "now");
  EXPECT_EQ(textOf(byKey), "Unable to call slot \"now\" on interface key 42!");
  EXPECT_EQ(byKey.interfaceIndex(), 0u);
  EXPECT_EQ(byKey.location(), cComponentLocation());  // here
  EXPECT_EQ(textOf(cRMIException(42, cRMIException::eConnectSignal, "tick")),
            "Unable to connect signal \"tick\" to interface key 42!");
  EXPECT_EQ(textOf(cRMIException(42, static_cast<cRMIException::Operation>(5), "x")), "");
}

TEST(RMIException, ArchivesItsFieldsAndLoadsAllOrNothing) {
  const cComponentLocation remote(cComponentAddr(1, 7), "far", "x", 77);
  cRMIException sent(remote, 2, cRMIException::eConnectSignal, "tick");
  qsa::cSerializeBinary s;
  sent.storeRecursive(s);
  qsa::cDeserializeBinary d(s.ownData());
  qstd::tAutoPtr<qstd::cAbstractException> back =
      qstd::cAbstractException::createFromStream(d, qcs::cQCSExceptionFactory());
  const cRMIException& got = dynamic_cast<const cRMIException&>(*back);
  EXPECT_EQ(got.location(), remote);
  EXPECT_EQ(got.interfaceIndex(), 2u);
  EXPECT_EQ(got.operation(), cRMIException::eConnectSignal);
  EXPECT_EQ(got.signalSlotName(), cAsciiString("tick"));
  EXPECT_EQ(textOf(got), "Unable to connect signal \"tick\" to interface 2!");

  // Cut inside the fields: the exception keeps what it had.
  qsa::cSerializeBinary part;
  sent.store(part);
  qstd::tArray<char> bytes(part.ownData());
  qsa::cDeserializeBinary cut;
  cut.setData(bytes.data(), bytes.size() - 6);
  cAsciiString name;
  name << cut;
  cRMIException kept(9, cRMIException::eCallSlot, "kept");
  EXPECT_THROW(kept.load(cut), qstd::cAbstractException);
  EXPECT_EQ(kept.interfaceKey(), 9u);
  EXPECT_EQ(kept.signalSlotName(), cAsciiString("kept"));
  EXPECT_EQ(textOf(kept), "Unable to call slot \"kept\" on interface key 9!");
}

TEST(RemoteExceptions, TheRemoteLocationTravelsWithCopiesAndTheChain) {
  qstd::cRuntimeException e(qucs::cLIMessage("$QTR$failed far away"), "x.cpp", 1);
  EXPECT_FALSE(e.isRemote());
  EXPECT_EQ(e.remoteLocation(), nullptr);
  const cComponentLocation far(cComponentAddr(1, 7), "far", "", 77);
  e.setRemoteInfo(far);
  EXPECT_TRUE(e.isRemote());
  EXPECT_EQ(*e.remoteLocation(), far);
  e.setRemoteInfo(cComponentLocation(cComponentAddr(1, 8), "farther", "", 78));  // replaced
  EXPECT_EQ(e.remoteLocation()->hostName(), cAsciiString("farther"));

  qstd::cRuntimeException copy(e);
  EXPECT_EQ(copy.remoteLocation()->hostName(), cAsciiString("farther"));
  qstd::cRuntimeException outer(qucs::cLIMessage("$QTR$call failed"), "y.cpp", 2);
  outer.link(e);
  EXPECT_FALSE(outer.isRemote());
  EXPECT_TRUE(outer.history()->isRemote());
  qstd::cRuntimeException assigned;
  assigned = copy;
  EXPECT_TRUE(assigned.isRemote());
  qstd::cRuntimeException moved(std::move(assigned));
  EXPECT_TRUE(moved.isRemote());
}
