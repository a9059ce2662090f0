// A definition that cannot be written.
#include "support/FakeComponent.h"
#include "support/TemporaryFolder.h"
#include "support/UnitSink.h"
#include "symbkds/dump/DumpLine.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class CUnwritableDef : public CSymbXMLDDTStructDef
{
public:
    explicit CUnwritableDef(bool shouldThrow) : throws(shouldThrow) {}

    bool Dump(CDumpLine& line) const override
    {
        line.Text("a beginning");
        if (throws)
            throw std::runtime_error("not to be written");
        return false;
    }

private:
    bool throws;
};

TEST(IncompleteDump, IsDeletedUnlessAnExceptionEndedIt)
{
    for (bool throws : {false, true}) {
        CFakeComponent component("TYPE Point STRUCT X INT END VAR A INT AT %MW1 size 2");
        CTemporaryFolder folder, dumps;
        CUnitSink sink;
        CSymbXml symb;
        symb.GetTypes().AddTypeDef("Odd", std::make_unique<CUnwritableDef>(throws));
        const std::string path = folder.WriteFile("plant.kds", "");
        EXPECT_EQ(symb.Init(path.c_str(), &sink, TRUE, dumps.Path().c_str(), 0), 0);
        EXPECT_EQ(sink.TakeText(), throws ? "KorvaPro Reader <" + path +
                                                ">:catched exception on Init with error message: not to be written"
                                          : "");
        EXPECT_EQ(symb.GetVariables().GetCount(), 1);
        EXPECT_EQ(dumps.List().empty(), !throws);
        if (throws) {
            EXPECT_TRUE(dumps.ReadFile(dumps.List()).ends_with("ListType 2\r\na beginning")); // as much as was written
        }
    }
}

} // namespace
