'use strict';

/*
 * The badge printer: the page draws the badge, the robot prints the picture.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 30000;   // milliseconds; some printers are slow, some say nothing

  const STATES = new Map([
    ['IDLE', ['good', 'printerIdle']],
    ['IN_PROCESS', ['busy', 'printerPrints']],
    ['LOW_PAPER', ['warning', 'printerStateLow']],
    ['NO_PAPER', ['bad', 'printerStateNoPaper']],
    ['ERROR', ['bad', 'printerStateError']],
    ['NOT_CONNECTED', ['bad', 'printerStateOff']],
  ]);

  const element = (id) => document.getElementById(id);
  const { asText, asNumber } = sample.values;
  const { chosen, told } = sample.fields;
  const { translate } = sample.language;

  function createPrinter(app) {
    const news = sample.createNews(app, element('printer-news'), 'printerHint');
    const wait = sample.createWait(TIME_LIMIT, () => news.tell('bad', 'printerSilent'));
    let visitor = '';       // the person present, if the robot knows the name
    let isTyped = false;    // the name was typed: nobody who comes replaces it

    const name = () => element('badge-name').value.trim();

    function draw() {
      const date = new Date().toLocaleDateString(document.documentElement.lang, { dateStyle: 'long' });
      sample.drawBadge(element('badge'), {
        title: translate('badgeTitle'),
        name: name() || translate('badgeNobody'),
        date,
        pattern: chosen('badge-pattern'),
      });
      element('badge').setAttribute('aria-label', translate('badgePreview', { name: name(), date }));
    }

    // --- Who is there ------------------------------------------------------

    function takeVisitor() {
      element('badge-name').value = visitor;
      isTyped = false;
      draw();
    }

    function setVisitor(text) {
      visitor = text;
      element('badge-visitor').disabled = visitor === '';
      if (!isTyped && visitor !== '') {
        takeVisitor();
      }
    }

    // --- Printing ----------------------------------------------------------

    function print() {
      if (name() === '') {
        news.tell('warning', 'badgeNameMissing');
        element('badge-name').focus();
        return;
      }
      draw();
      news.tell('asking', 'printerSending');
      wait.begin();
      app.send('printer.print', { data: element('badge').toDataURL('image/png') });
    }

    function askState() {
      news.tell('asking', 'printerAsking');
      wait.begin();
      app.send('printer.state', {});
    }

    function answer(kind, key) {
      return () => {
        wait.end();
        news.tell(kind, key);
      };
    }

    function onState({ state, error_code: code, error_message: message }) {
      wait.end();
      const [kind, key] = STATES.get(state) || ['note', 'printerStateOther'];
      news.tell(kind, key, {
        state: asText(state), code: asNumber(code), message: told(message),
      });
    }

    element('badge-name').addEventListener('input', () => {
      isTyped = name() !== '';
      draw();
    });
    document.querySelectorAll('input[name="badge-pattern"]').forEach((choice) => {
      choice.addEventListener('change', draw);
    });
    sample.language.onChange(draw);
    setVisitor('');

    return {
      onView: draw,
      reactions: [
        ['user.has.user', ({ name: text }) => setVisitor(asText(text).trim())],
        ['user.lost.user', () => setVisitor('')],
        ['printer.success', answer('good', 'printerDone')],
        // The result is still to come, so this does not end the waiting.
        ['printer.paper.low', () => news.tell('warning', 'printerLow')],
        ['printer.nopaper', answer('bad', 'printerNoPaper')],
        ['printer.noprinter', answer('bad', 'printerMissing')],
        ['printer.error', answer('bad', 'printerError')],
        ['printer.state.info', onState],
      ],
      buttons: {
        'badge-visitor': takeVisitor,
        'badge-print': print,
        'printer-state': askState,
      },
    };
  }

  sample.createPrinter = createPrinter;

})(window.sample);
