'use strict';

/*
 * The card dispenser. It tells what happens to a card, and which of its sensors
 * see one.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 10000;   // milliseconds for the first sign of life
  const LIGHT_TIME = 8000;    // milliseconds; that a card has gone is not told

  const LIGHTS = new Map([
    ['DispSensor', 'light-exit'],
    ['CaptSensor1', 'light-capture-1'],
    ['CaptSensor2', 'light-capture-2'],
  ]);

  const element = (id) => document.getElementById(id);
  const { asText } = sample.values;
  const { show } = sample.language;

  function createDispenser(app) {
    const news = sample.createNews(app, element('dispenser-news'), 'dispenserHint');
    const wait = sample.createWait(TIME_LIMIT, () => news.tell('bad', 'dispenserSilent'));
    const timers = new Map();   // id of a light -> the timer that puts it out

    function setLight(id, on) {
      clearTimeout(timers.get(id));
      element(id).classList.toggle('is-on', on);
      show(`${id}-state`, on ? 'lightOn' : 'lightOff', app.clockTime());
      if (on) {
        timers.set(id, setTimeout(() => setLight(id, false), LIGHT_TIME));
      }
    }

    function onSensor({ sensor }) {
      wait.end();
      const id = LIGHTS.get(sensor);
      if (id) {
        setLight(id, true);
      }
      if (id === 'light-exit') {
        news.tell('good', 'cardReady');
      } else {
        news.tell('note', 'sensorSees', asText(sensor));
      }
    }

    function dispense() {
      LIGHTS.forEach((id) => setLight(id, false));
      news.tell('asking', 'cardAsked');
      wait.begin();
      app.send('dispenser.dispense', {});
    }

    function event(kind, key) {
      return () => {
        wait.end();
        news.tell(kind, key);
      };
    }

    LIGHTS.forEach((id) => setLight(id, false));

    return {
      reactions: [
        ['dispenser.nodispenser', event('bad', 'dispenserMissing')],
        ['dispenser.not.connected', event('bad', 'dispenserOff')],
        ['dispenser.communication.timeout', event('bad', 'dispenserTimeout')],
        ['dispenser.card.dispensing', event('busy', 'cardMoves')],
        ['dispenser.card.preempty', event('warning', 'cardsLow')],
        ['dispenser.card.empty', event('bad', 'cardsOut')],
        ['dispenser.cardbin.full', event('warning', 'cardBinFull')],
        ['dispenser.card.error', event('bad', 'cardError')],
        ['dispenser.sensor', onSensor],
      ],
      buttons: { 'card-dispense': dispense },
    };
  }

  sample.createDispenser = createDispenser;

})(window.sample);
