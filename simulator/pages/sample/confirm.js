'use strict';

/*
 * What cannot be taken back is done at the second touch: the first one asks.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_TO_CONFIRM = 4000;   // milliseconds, then the button is itself again

  // A listener for the clicks of one button that carries data-text. What
  // subject() gives must be the same at both touches, or it is asked again.
  function confirmed(act, subject = () => null) {
    let timer = null;
    let asked = null;

    function calm(button) {
      clearTimeout(timer);
      timer = null;
      button.classList.remove('is-asking');
      button.textContent = sample.language.translate(button.dataset.text);
    }

    return (event) => {
      const button = event.currentTarget;
      const isConfirmed = timer !== null && asked === subject();
      calm(button);
      if (isConfirmed) {
        act();
        return;
      }
      asked = subject();
      button.classList.add('is-asking');
      button.textContent = sample.language.translate('really');
      timer = setTimeout(() => calm(button), TIME_TO_CONFIRM);
    };
  }

  sample.confirmed = confirmed;

})(window.sample);
