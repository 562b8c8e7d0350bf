// Starts the page.
import { App } from "./app";
import { startEngine, takeAssets } from "./engine";
import { drawingInPage, fetchDrawing, namedInAddress } from "./files";
import { loadSettings } from "./settings";
import { browserLanguage, setLanguage, t } from "./texts";

async function openFromAddress(app: App): Promise<void> {
  for (const name of namedInAddress()) {
    try {
      app.open([await fetchDrawing(name)]);
    } catch (error) {
      const reason =
        location.protocol === "file:" ? t("fileScheme") : error instanceof Error ? error.message : String(error);
      app.say(t("noSuchFile", name, reason));
    }
  }
}

const settings = loadSettings();
setLanguage(settings.language ?? browserLanguage());
document.documentElement.lang = settings.language ?? browserLanguage();
// Both are taken before the page is laid out.
const assets = takeAssets(),
  inPage = drawingInPage();
const app = new App(settings);
if (inPage) app.open([inPage]);
void openFromAddress(app);
startEngine(assets).then(
  (engine) => app.start(engine),
  (error: unknown) => app.failed(error instanceof Error ? error.message : String(error)),
);
