#pragma once

#include "GatewayRequest.h"
#include "Model/EditorAnswer.h"
#include "Records/TextBrowseAnswer.h"

#include <map>
#include <string>
#include <vector>

namespace wendlow {

/// Between the Editor's asks and answers and those of the wire.
namespace BrowseWire {

/// One pair for each member of each pick, in an order that makes equal asks equal on the wire.
std::vector<FilterPair> filters(const std::map<std::string, EditorPicks>& picks);

ReadCase::TextBrowse request(const EditorAsk& ask);

/// A filter's value as a person reads it.
std::string printed(const FilterValue& value);

/// The answer's page and censuses, settled; `sliceTotal` is the store's to say. Where the page
/// begins as `held` does, those rows are taken from there: a list that is read on page by page is
/// answered from its beginning each time.
EditorAnswer settled(const TextBrowseAnswer& answer, const EditorAsk& ask,
                     const EditorRows& held = {}, const EditorMoments& heldMoments = {});

std::vector<EditorCount> counts(const std::vector<NameCount>& rows);

} // namespace BrowseWire
} // namespace wendlow
