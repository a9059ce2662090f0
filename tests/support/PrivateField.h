// The way to a private field that no export and no operation sets: explicit instantiations may name it.
//
//   struct WordArea
//   {
//       friend MemoryArea CSymbXml::* FieldOf(WordArea);
//   };
//   template struct PrivateField<WordArea, &CSymbXml::wordArea>;
//   ... symb.*FieldOf(WordArea()) = {.count = 100};
#pragma once

template <class Tag, auto Field>
struct PrivateField
{
    friend decltype(Field) FieldOf(Tag) { return Field; }
};
