#include "shell/about_text.h"

#include "shell/addresses.h"

namespace about_text {

std::string Credits() {
    const std::string indent = "      ";
    return "<b>Author:</b>\r" + indent + "Tolvar Quennick\r" + indent + addresses::kEmail + "\r" + indent +
           addresses::kWebsite +
           "\r\r"
           "<b>Disclaimer:</b>\r"
           "<font size=\"10\">"
           "THE SOFTWARE IS PROVIDED \"AS IS\", WITHOUT WARRANTY OF ANY KIND, EXPRESS OR IMPLIED, INCLUDING BUT NOT "
           "LIMITED TO THE WARRANTIES OF MERCHANTABILITY, FITNESS FOR A PARTICULAR PURPOSE AND NONINFRINGEMENT. IN NO "
           "EVENT SHALL THE AUTHORS OR COPYRIGHT HOLDERS BE LIABLE FOR ANY CLAIM, DAMAGES OR OTHER LIABILITY, WHETHER "
           "IN AN ACTION OF CONTRACT, TORT OR OTHERWISE, ARISING FROM, OUT OF OR IN CONNECTION WITH THE SOFTWARE OR "
           "THE USE OR OTHER DEALINGS IN THE SOFTWARE."
           "</font>";
}

}  // namespace about_text
