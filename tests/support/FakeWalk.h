// The lists and elements that the fake component hands out.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "support/FakeObject.h"

#include <string>
#include <vector>

using NodeList = std::vector<const ExportNode*>;

HRESULT DeliverElement(WalkElement** out, const FakeStatePtr& state, const ExportNode* node);
HRESULT DeliverList(WalkList** out, const FakeStatePtr& state, NodeList nodes);
