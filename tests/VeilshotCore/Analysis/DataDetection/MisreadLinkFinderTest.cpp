#include "VeilshotCore/Analysis/DataDetection/MisreadLinkFinder.h"
#include "tests/VeilshotCore/Analysis/DataDetection/FoundTexts.h"

namespace Veilshot {
namespace {

TEST(MisreadLinkFinder, FindsAddressesWithAWrongSignABlankOrAnEndCutOff) {
    expectFound<MisreadLinkFinder>({"Write to [anna.berg&parcelio.dk] today",
                                    "or [aniya_erdmanebrightloom.com], she", "[jonas_ravn zoho.eu]",
                                    "[mark price&parcelio.dk]", "[joan66@gnmucnet]",
                                    "Cc [kitchenølodge.example]", "[bquistafritidsnet.example]",
                                    "[post@ryexample]", "to [ann.li@parcelio.dk]eller214.25",
                                    "REDIS_URL=[redis: //:s2KI@cache:6379/0]", "3318 [2001:db8:42: :9aif]"});
    expectFound<MisreadLinkFinder>(
        {"😀 [anna@parcelio,dk]", "label to [annette. laursen@parcelio.dk]",
         "[susanne_henriksen-pedersen@h] +45", "[itzel@example.c...]",
         "DSN=[https ://3b07@errors.shop.dev/8551]", "URL=[postgres:/ /app: XsaR@db.internal: 5432/shop]",
         "inet6 [fe80::5054:ff:fe12:3456]/64 scope", "from [172.16.28.i99]", "client=[172,16.17.52] ok",
         "[46.173.16._200] - Dallas", "Li <[thao. leffhanoi-tides.example]>"});
}

TEST(MisreadLinkFinder, LeavesCodeVersionsAndSumsAlone) {
    expectNothingFound<MisreadLinkFinder>(
        {"user@host", "git@github", "lodash.merge@latest", "deploy.bot@web01:~$", "notes.txt example.com",
         "well-known example.com", "my_module.close()", "see https: // comment", "default: //nothing",
         "10.0.0.1", "version 1.12.0.4", "2025.05.30.4", "55.6761,12.5683", "1,234.567,89"});
    expectNothingFound<MisreadLinkFinder>(
        {"10.30, 12.45", "12:30:45", "std::chrono::seconds", "3c:22:fb:9a:01:7e", "data_frame.at[0]",
         "row.user_info.no", "user_data.com = 3", "index.php example.com", "v1.2 docs.example.com",
         "sharedlibrary.test", "configuration.example", "2025:12: :30", "on my_own example.com",
         "john_smith github.com"});
}

} // namespace
} // namespace Veilshot
