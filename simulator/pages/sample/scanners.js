'use strict';

/*
 * The scanners of passports and of documents. Both wait for a sheet, scan it,
 * read it, and report the fields that they found.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 5000;   // milliseconds for the answer whether the scan starts
  const IDLE = 0;
  const WAITING = 1;
  const DISCONNECTED = 4;

  const element = (id) => document.getElementById(id);
  const { asText, asNumber, asRecord } = sample.values;
  const { chosen, told, fillTable } = sample.fields;
  const { show } = sample.language;

  // kind is "passport" or "document"; options() gives what only its kind has.
  function createScanner(app, kind, options) {
    const news = sample.createNews(app, element(`${kind}-news`), `${kind}Hint`);
    const wait = sample.createWait(TIME_LIMIT, () => news.tell('bad', 'scanSilent'));
    const bar = element(`${kind}-progress`);
    let isFinished = false;   // the robot is at rest again after it, which must not empty the bar

    // A number from 0 to 100; null: at work, but nobody knows how far.
    function setProgress(progress) {
      bar.classList.toggle('is-unknown', progress === null);
      bar.style.setProperty('--part', String((progress || 0) / 100));
      if (progress === null) {
        bar.removeAttribute('aria-valuenow');
      } else {
        bar.setAttribute('aria-valuenow', String(progress));
      }
    }

    function scan() {
      isFinished = false;
      fillTable(element(`${kind}-fields`), []);
      setProgress(0);
      news.tell('asking', 'scanAsked');
      wait.begin();
      app.send(`scanner.${kind}.request`,
        Object.assign({ timeout: Number(chosen(`${kind}-timeout`)) }, options()));
    }

    function onResponse({ success }) {
      wait.end();
      if (success === true) {
        news.tell('note', 'scanStarted');
      } else {
        news.tell('bad', 'scanRefused');
        setProgress(0);
      }
    }

    function onState({ state: value }) {
      const state = asNumber(value);
      show(`${kind}-state`, 'scanState', state);
      element(`${kind}-state`).dataset.state = asText(value);
      if (state === IDLE) {
        setProgress(isFinished ? 100 : 0);
      } else if (state === WAITING || state === DISCONNECTED) {
        setProgress(0);
      } else if (bar.getAttribute('aria-valuenow') === '0') {
        setProgress(null);   // some scanners never tell how far they are
      }
    }

    // Progress travels as text.
    function onProgress({ progress }) {
      const value = Number.parseFloat(asText(progress));
      if (Number.isFinite(value)) {
        setProgress(Math.max(0, Math.min(100, Math.round(value))));
      }
    }

    function onError({ code, text }) {
      setProgress(0);
      news.tell('bad', 'scanError', { code: told(code), text: told(text) });
    }

    function onFinish({ data }) {
      const rows = Object.entries(asRecord(data));
      fillTable(element(`${kind}-fields`), rows);
      isFinished = true;
      setProgress(100);
      news.tell(rows.length > 0 ? 'good' : 'warning', rows.length > 0 ? 'scanDone' : 'scanEmpty', rows.length);
    }

    show(`${kind}-state`, 'scanStateUnknown');
    setProgress(0);

    return {
      reactions: [
        [`scanner.${kind}.response`, onResponse],
        [`scanner.${kind}.state`, onState],
        [`scanner.${kind}.progress`, onProgress],
        [`scanner.${kind}.error`, onError],
        [`scanner.${kind}.finish`, onFinish],
      ],
      buttons: { [`${kind}-scan`]: scan },
    };
  }

  function createPassportScanner(app) {
    return createScanner(app, 'passport', () => ({}));
  }

  function createDocumentScanner(app) {
    const brightness = sample.fields.createSlider('document-brightness');
    return createScanner(app, 'document', () => ({
      mode: Number(chosen('document-mode')),
      brightness: brightness.value(),
      resolution: Number(chosen('document-resolution')),
    }));
  }

  sample.createPassportScanner = createPassportScanner;
  sample.createDocumentScanner = createDocumentScanner;

})(window.sample);
