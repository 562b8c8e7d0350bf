// Starts the page.
import { App } from "./app";
import { startEngine } from "./engine";
import { drawingInPage, fetchDrawing, namedInAddress } from "./files";
import { loadSettings } from "./settings";
import { browserLanguage, setLanguage, t } from "./texts";

async function openFromAddress(app: App): Promise<void> {
  for (const name of namedInAddress()) {
    try {
      app.open([await fetchDrawing(name)]);
    } catch (error) {
      const reason = location.protocol === "file:" ? t("fileScheme") : error instanceof Error ? error.message : String(error);
      app.say(t("noSuchFile", name, reason));
    }
  }
}

const settings = loadSettings();
setLanguage(settings.language ?? browserLanguage());
document.documentElement.lang = settings.language ?? browserLanguage();
const app = new App(settings);
const inPage = drawingInPage();
if (inPage) app.open([inPage]);
void openFromAddress(app);
startEngine().then(
  (engine) => app.start(engine),
  (error: unknown) => app.failed(error instanceof Error ? error.message : String(error)),
);
