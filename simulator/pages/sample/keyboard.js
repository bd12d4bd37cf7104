'use strict';

/*
 * The robot's on-screen keyboard. The page asks for its state after each change,
 * so that it shows what the robot has, and not what was wished for.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 3000;   // milliseconds; without a keyboard no reply comes

  const element = (id) => document.getElementById(id);
  const { asText } = sample.values;
  const { show } = sample.language;
  const locales = () => Array.from(document.querySelectorAll('[data-locale]'));

  function createKeyboard(app) {
    const wait = sample.createWait(TIME_LIMIT, () => {
      show('keyboard-visible', 'keyboardSilent');
      show('keyboard-locale', 'keyboardLocaleUnknown');
    });

    function control(attributes) {
      app.send('keyboard.control.request', attributes);
    }

    function ask() {
      wait.begin();
      control({ get_locale: true, is_visible: true });
    }

    // The robot answers what is asked before it does what is wanted: so asking
    // is a request of its own.
    function change(attributes) {
      control(attributes);
      ask();
    }

    function onResponse({ locale, is_visible: isVisible }) {
      wait.end();
      if (typeof isVisible === 'boolean') {
        show('keyboard-visible', isVisible ? 'keyboardShown' : 'keyboardHidden');
        element('keyboard-show').setAttribute('aria-pressed', String(isVisible));
        element('keyboard-hide').setAttribute('aria-pressed', String(!isVisible));
      }
      if (asText(locale) !== '') {
        show('keyboard-locale', 'keyboardLocale', asText(locale).slice(0, 40));
        locales().forEach((button) => {
          button.setAttribute('aria-pressed', String(button.dataset.locale === locale));
        });
      }
    }

    locales().forEach((button) => {
      button.addEventListener('click', () => change({ set_locale: button.dataset.locale }));
    });
    show('keyboard-visible', 'keyboardUnknown');
    show('keyboard-locale', 'keyboardLocaleUnknown');

    return {
      onView: ask,
      reactions: [['keyboard.control.response', onResponse]],
      buttons: {
        'keyboard-show': () => change({ show: true }),
        'keyboard-hide': () => change({ hide: true }),
        'keyboard-ask': ask,
      },
    };
  }

  sample.createKeyboard = createKeyboard;

})(window.sample);
