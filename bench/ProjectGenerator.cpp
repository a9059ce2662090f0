#include "bench/ProjectGenerator.h"

#include <array>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string_view>

namespace {

constexpr int kKinds = 10; // the last digit of a variable's number tells its type
constexpr int kPlainKinds = 6;
constexpr int kStructureKind = 6;
constexpr int kFunctionBlockKind = 9;
constexpr int kVariablesPerType = 500;

struct Kind
{
    std::string_view typeName;
    int bytes;
};
constexpr std::array<Kind, kKinds> kKindTable = {{{"INT", 2},
                                                  {"BOOL", 1},
                                                  {"WORD", 2},
                                                  {"UINT", 2},
                                                  {"EBOOL", 1},
                                                  {"INT", 2},
                                                  {"Motor", 24},
                                                  {"ARRAY[0..9] OF INT", 20},
                                                  {"ARRAY[0..3,1..5] OF REAL", 80},
                                                  {"Controller", 32}}};

constexpr std::array<std::string_view, 8> kAreas = {"Boiler", "Conveyor", "Mixer",     "Packing",
                                                    "Pump",   "Silo",     "Treatment", "Warehouse"};
constexpr std::array<std::string_view, 6> kComments = {"measured value",   "set by the operator", "maintenance counter",
                                                       "feeds the alarms", "filtered, 100 ms",    "see drawing 4711"};

class CProjectWriter
{
public:
    CProjectWriter(const std::string& path, int variableCount, unsigned seed)
        : file(path, std::ios::binary), variables(variableCount), types(variableCount / kVariablesPerType + 1),
          random(seed)
    {}

    void Write()
    {
        file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LocatedSymbolTable>\n";
        for (int type = 0; type < types; ++type)
            WriteTypes(type);
        file << "  <dataBlock>\n";
        for (int number = 0; number < variables; ++number)
            WriteVariable(number);
        BeginVariable(GeneratedNames::kLongArray,
                      "ARRAY[0.." + std::to_string(GeneratedNames::kLongArrayElements - 1) + "] OF INT", 0);
        EndVariable(0, 2 * GeneratedNames::kLongArrayElements);
        End();
    }

    void WriteWide()
    {
        file << "<LocatedSymbolTable>\n  <DDTSource DDTName=\"Wide\"><structure>\n";
        for (int number = 0; number < GeneratedNames::kWideMembers; ++number)
            WriteMember(GeneratedNames::Member(number), number % 2 == 0 ? "Int" : "Real", 4 * number, 4);
        file << "  </structure></DDTSource>\n  <dataBlock>\n";
        BeginVariable(GeneratedNames::kWide, "Wide", 0);
        EndVariable(0, 4 * GeneratedNames::kWideMembers);
        End();
    }

private:
    void End()
    {
        file << "  </dataBlock>\n</LocatedSymbolTable>\n";
        if (!file.flush())
            throw std::runtime_error("cannot write the project");
    }

    template <class Choices>
    std::string_view Any(const Choices& choices)
    {
        return choices[random() % choices.size()];
    }

    void WriteMember(std::string_view name, const std::string& typeName, int offset, int bytes)
    {
        file << "    <variables name=\"" << name << "\" typeName=\"" << typeName << "\"><comment>" << Any(kComments)
             << "</comment><attribute name=\"AreaOffset\" value=\"" << offset << "\"/><attribute name=\"Size\" value=\""
             << bytes << "\"/></variables>\n";
    }

    void WriteTypes(int type)
    {
        const std::string suffix = std::to_string(type);
        file << "  <DDTSource DDTName=\"Drive" << suffix << "\"><structure>\n";
        WriteMember("Current", "INT", 0, 2);
        WriteMember("Voltage", "REAL", 4, 4);
        WriteMember("Limits", "ARRAY[0..3] OF INT", 8, 8);
        file << "  </structure></DDTSource>\n  <DDTSource DDTName=\"Motor" << suffix << "\"><structure>\n";
        WriteMember("Speed", "INT", 0, 2);
        WriteMember("State", "WORD", 2, 2);
        WriteMember("Drive", "Drive" + suffix, 4, 16);
        file << "  </structure></DDTSource>\n  <FBSource nameOfFBType=\"Controller" << suffix << "\">\n"
             << "   <inputParameters>\n";
        WriteMember("SetPoint", "REAL", 0, 4);
        WriteMember("Enable", "BOOL", 4, 1);
        file << "   </inputParameters>\n   <outputParameters>\n";
        WriteMember("Output", "REAL", 8, 4);
        file << "   </outputParameters>\n  </FBSource>\n";
    }

    void WriteVariable(int number)
    {
        const int kindNumber = number % kKinds;
        const Kind& kind = kKindTable[static_cast<std::size_t>(kindNumber)];
        std::string typeName(kind.typeName);
        if (kindNumber == kStructureKind || kindNumber == kFunctionBlockKind)
            typeName += std::to_string(random() % static_cast<unsigned>(types));
        BeginVariable(GeneratedNames::Variable(number), typeName, number);
        EndVariable(number, kind.bytes);
    }

    void BeginVariable(std::string_view name, const std::string& typeName, int number)
    {
        file << "    <variables name=\"" << name << "\" typeName=\"" << typeName << "\" topologicalAddress=\"%MW"
             << number << "\">\n      <comment>" << Any(kAreas) << ": " << Any(kComments) << ", item " << number
             << "</comment>\n";
    }

    void EndVariable(int number, int bytes)
    {
        WriteAttribute("AreaBlock", "5");
        WriteAttribute("AreaOffset", std::to_string(2LL * number));
        WriteAttribute("Size", std::to_string(bytes));
        WriteAttribute("CustomerString", "line " + std::to_string(random() % kAreas.size()));
        WriteAttribute("RequestAccessRight", "2");
        file << "    </variables>\n";
    }

    void WriteAttribute(std::string_view name, const std::string& value)
    {
        file << "      <attribute name=\"" << name << "\" value=\"" << value << "\"/>\n";
    }

    std::ofstream file;
    int variables;
    int types;
    std::mt19937 random;
};

} // namespace

std::string GeneratedNames::Variable(int number)
{
    const std::string_view area = kAreas[static_cast<std::size_t>(number / kKinds) % kAreas.size()];
    return std::string(area) + "_Item" + std::to_string(number) + "_Value";
}

std::string GeneratedNames::Member(int number)
{
    return "Member" + std::to_string(number);
}

bool GeneratedNames::IsPlain(int number)
{
    return number % kKinds < kPlainKinds;
}

bool GeneratedNames::IsStructure(int number)
{
    return number % kKinds == kStructureKind;
}

void WriteProject(const std::string& path, int variables, unsigned seed)
{
    CProjectWriter(path, variables, seed).Write();
}

void WriteWideProject(const std::string& path, unsigned seed)
{
    CProjectWriter(path, 0, seed).WriteWide();
}
